#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QFuture>

#include <chrono>

namespace Tarnwick {

/// Sends a method call and yields the answer: a reply, or an error message, as which a bus that is
/// not connected and a limit that has passed come, too. Never blocks. Main thread only.
QFuture<QDBusMessage> callBus(
    const QDBusConnection& bus, const QDBusMessage& message, std::chrono::milliseconds limit);

}  // namespace Tarnwick

#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QFuture>

#include <chrono>

namespace Tarnwick {

/// A call of a method of the bus itself.
QDBusMessage busMethod(const QString& method, const QVariantList& arguments);

/// Calls a D-Bus method. Returns the reply or an error message, also for a timeout or a bus that is
/// not connected. Never blocks. Main thread only.
QFuture<QDBusMessage> callBus(
    const QDBusConnection& bus, const QDBusMessage& message, std::chrono::milliseconds limit);

}  // namespace Tarnwick

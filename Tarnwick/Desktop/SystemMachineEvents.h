#pragma once

#include "Tarnwick/Desktop/MachineEvents.h"

#include <QCoro/QCoroTask>
#include <QDBusConnection>
#include <QDBusMessage>

#include <optional>

namespace Tarnwick {

/// Events from logind and NetworkManager on the system bus, with verified senders. Emits nothing
/// without the bus or its services. Main thread only.
class SystemMachineEvents final : public MachineEvents {
    Q_OBJECT

public:
    /// Listens on the system bus, after the program has started. Does not block.
    SystemMachineEvents();

    /// Listens on this bus, for tests.
    explicit SystemMachineEvents(const QDBusConnection& bus);

private Q_SLOTS:
    void prepareForSleep(bool isFallingAsleep, const QDBusMessage& signal);
    void networkStateChanged(quint32 state, const QDBusMessage& signal);

private:
    QCoro::Task<> listenToSystem();
    void listen(const QDBusConnection& bus);
    QCoro::Task<> emitIfSentBy(
        QString service, QDBusMessage signal, void (MachineEvents::*happened)());

    std::optional<QDBusConnection> _bus;
};

}  // namespace Tarnwick

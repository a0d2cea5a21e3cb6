#pragma once

#include "Tarnwick/Desktop/MachineEvents.h"

#include <QCoro/QCoroTask>
#include <QDBusConnection>
#include <QDBusMessage>

#include <optional>

namespace Tarnwick {

/// What logind and NetworkManager say on the system bus. A signal counts if its sender owns their
/// name. Without a system bus, or without them, nothing is ever said. Main thread only.
class SystemMachineEvents final : public MachineEvents {
    Q_OBJECT

public:
    /// Listens on the machine's system bus, once the program has started; nothing waits for it.
    SystemMachineEvents();

    /// Listens on this bus, for tests.
    explicit SystemMachineEvents(const QDBusConnection& bus);

private Q_SLOTS:
    void prepareForSleep(bool isFallingAsleep, const QDBusMessage& signal);
    void networkStateChanged(quint32 state, const QDBusMessage& signal);

private:
    QCoro::Task<> listenToSystem();
    void listen(const QDBusConnection& bus);
    QCoro::Task<> sayIfSentBy(
        QString service, QDBusMessage signal, void (MachineEvents::*happened)());

    std::optional<QDBusConnection> _bus;
};

}  // namespace Tarnwick

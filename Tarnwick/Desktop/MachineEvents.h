#pragma once

#include <QObject>

namespace Tarnwick {

/// What happens to the machine and makes the list out of date. Main thread only.
class MachineEvents : public QObject {
    Q_OBJECT

Q_SIGNALS:
    /// The machine has woken up. Its network may not be there yet.
    void woke();
    /// The machine has a network again.
    void networkReturned();
};

}  // namespace Tarnwick

#pragma once

#include <QObject>

namespace Tarnwick {

/// Events of the machine that make the list outdated. Main thread only.
class MachineEvents : public QObject {
    Q_OBJECT

Q_SIGNALS:
    /// The machine has woken up. Its network may still be missing.
    void woke();
    void networkReturned();
};

}  // namespace Tarnwick

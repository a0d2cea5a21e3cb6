#pragma once

#include <QObject>

namespace TarnwickDirect {

/// An updater at work: it checks for updates by itself from time to time, and when the user asks,
/// and leads the user through what it finds. Main thread only.
class UpdaterController : public QObject {
    Q_OBJECT

public:
    /// Whether the user can ask for a check now.
    virtual bool canCheckForUpdates() const = 0;

    /// A check that the user asked for, who is told how it ends. Does nothing while none is
    /// possible.
    virtual void checkForUpdates() = 0;

    /// Brings to the front what the user is led through, if there is anything.
    virtual void bringToFront() = 0;

    /// For the end of the process: removes what has been begun. No other call may follow.
    virtual void stop() = 0;

Q_SIGNALS:
    void canCheckForUpdatesChanged(bool canCheckForUpdates);
};

}  // namespace TarnwickDirect

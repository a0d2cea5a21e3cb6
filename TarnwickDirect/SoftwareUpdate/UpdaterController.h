#pragma once

#include <QObject>

#include <functional>
#include <memory>

class QWidget;

namespace Tarnwick {
class Clock;
class DefaultsStore;
}  // namespace Tarnwick

namespace TarnwickDirect {

/// Checks for updates and guides the user through them. Main thread only.
class UpdaterController : public QObject {
    Q_OBJECT

public:
    virtual bool canCheckForUpdates() const = 0;

    /// Starts a visible check. Does nothing while none is possible.
    virtual void checkForUpdates() = 0;

    /// Starts an automatic check, which is only visible if it finds an update.
    virtual void checkInBackground() = 0;

    /// Brings the updater's dialog to the front, if there is one.
    virtual void bringToFront() = 0;

    /// Removes unfinished downloads. Call at the end of the process; no other call may follow.
    virtual void stop() = 0;

Q_SIGNALS:
    void canCheckForUpdatesChanged(bool canCheckForUpdates);
};

/// Receives the results of an updater's checks, on any thread.
class UpdaterDelegate {
public:
    UpdaterDelegate() = default;
    UpdaterDelegate(const UpdaterDelegate&) = delete;
    UpdaterDelegate& operator=(const UpdaterDelegate&) = delete;
    virtual ~UpdaterDelegate() = default;

    virtual void updaterDidFindValidUpdate(const QString& version) = 0;

    /// `error` is one English sentence: an error, or that there is no update.
    virtual void updaterDidNotFindUpdate(const QString& error) = 0;
};

/// What an updater uses of the program. All are set. Main thread only.
struct UpdaterHost {
    std::shared_ptr<Tarnwick::DefaultsStore> defaults;
    std::shared_ptr<Tarnwick::Clock> clock;

    /// Shows a window in front with the focus, on the user's request.
    std::function<void(QWidget&)> bringToFront;

    /// A window of the updater that had the focus was closed.
    std::function<void()> takeFocusBack;
};

/// Starts an updater; empty without one. The host and the delegate outlive it.
using MakeUpdater =
    std::function<std::unique_ptr<UpdaterController>(const UpdaterHost&, UpdaterDelegate&)>;

}  // namespace TarnwickDirect

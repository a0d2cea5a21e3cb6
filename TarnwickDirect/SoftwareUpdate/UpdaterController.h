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

/// An updater at work: it checks for updates from time to time, and when the user asks, and leads
/// the user through what it finds. Main thread only.
class UpdaterController : public QObject {
    Q_OBJECT

public:
    /// Whether the user can ask for a check now.
    virtual bool canCheckForUpdates() const = 0;

    /// A check that the user asked for and sees. Does nothing while none is possible.
    virtual void checkForUpdates() = 0;

    /// A check that nobody asked for. It ends in silence or with an update.
    virtual void checkInBackground() = 0;

    /// Brings the updater's dialog to the front, if there is one.
    virtual void bringToFront() = 0;

    /// For the end of the process: removes unfinished downloads. No other call may follow.
    virtual void stop() = 0;

Q_SIGNALS:
    void canCheckForUpdatesChanged(bool canCheckForUpdates);
};

/// Hears what an updater's checks find, on any thread.
class UpdaterDelegate {
public:
    UpdaterDelegate() = default;
    UpdaterDelegate(const UpdaterDelegate&) = delete;
    UpdaterDelegate& operator=(const UpdaterDelegate&) = delete;
    virtual ~UpdaterDelegate() = default;

    virtual void updaterDidFindValidUpdate(const QString& version) = 0;

    /// `error` is one English sentence: that there is no update, or what went wrong.
    virtual void updaterDidNotFindUpdate(const QString& error) = 0;
};

/// What an updater has of the program around it. All are there. Main thread only.
struct UpdaterHost {
    std::shared_ptr<Tarnwick::DefaultsStore> defaults;
    std::shared_ptr<Tarnwick::Clock> clock;

    /// Shows a window in front of the others, with the focus, because the user asked for it.
    std::function<void(QWidget&)> bringToFront;

    /// A window of the updater that had the focus is gone.
    std::function<void()> takeFocusBack;
};

/// Makes an updater that has started; empty where the program has none. The host and the delegate
/// live longer than the updater.
using MakeUpdater =
    std::function<std::unique_ptr<UpdaterController>(const UpdaterHost&, UpdaterDelegate&)>;

}  // namespace TarnwickDirect

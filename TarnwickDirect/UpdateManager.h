#pragma once

#include "TarnwickDirect/SoftwareUpdate/UpdaterController.h"
#include "TarnwickDirect/UpdateAvailability.h"

#include <QObject>

#include <functional>
#include <memory>

namespace TarnwickDirect {

/// What the program knows of its updates: whether a check is possible now, and what the last one
/// found. Main thread only, but for the delegate's calls, which may come from any thread.
class UpdateManager final
    : public QObject
    , public UpdaterDelegate {
    Q_OBJECT

public:
    /// Makes an updater that has started and reports to this delegate, or none, where the program
    /// has no updater.
    using MakeController = std::function<std::unique_ptr<UpdaterController>(UpdaterDelegate&)>;

    /// Starts the updater at once. What it says comes with the event loop's next turns.
    explicit UpdateManager(const MakeController& makeController);

    bool canCheckForUpdates() const { return _canCheckForUpdates; }

    UpdateAvailability updateAvailability() const { return _updateAvailability; }

    /// Whether the program has an updater at all.
    bool hasUpdater() const { return _updaterController != nullptr; }

    /// A check that the user asked for. Without an updater nothing comes of it.
    void checkForUpdates();

    /// Brings the updater's dialog to the front, if there is one.
    void bringToFront();

    /// For the end of the process: a download leaves nothing behind. No other call may follow.
    void stop();

    void updaterDidFindValidUpdate(const QString& version) override;
    void updaterDidNotFindUpdate(const QString& error) override;

Q_SIGNALS:
    void canCheckForUpdatesChanged();
    void updateAvailabilityChanged();

    /// These two carry what is heard to the main thread.
    void canCheckForUpdatesHeard(bool canCheckForUpdates, QPrivateSignal);
    void updateAvailabilityHeard(
        TarnwickDirect::UpdateAvailability updateAvailability, QPrivateSignal);

private:
    void setCanCheckForUpdates(bool canCheckForUpdates);
    void setUpdateAvailability(UpdateAvailability updateAvailability);

    bool _canCheckForUpdates = false;
    UpdateAvailability _updateAvailability = UpdateAvailability::unknown;
    std::unique_ptr<UpdaterController> _updaterController;
    QMetaObject::Connection _canCheckForUpdatesObservation;
};

}  // namespace TarnwickDirect

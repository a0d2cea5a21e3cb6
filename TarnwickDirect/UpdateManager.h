#pragma once

#include "TarnwickDirect/SoftwareUpdate/UpdaterController.h"

#include <QObject>

#include <functional>
#include <memory>

namespace TarnwickDirect {

/// What the last check for updates found.
enum class UpdateAvailability {
    unknown,
    checking,
    available,
    unavailable
};

/// The program's view of its updates. Main thread only, except for the delegate's functions, which
/// are safe from any thread.
class UpdateManager final
    : public QObject
    , public UpdaterDelegate {
    Q_OBJECT

public:
    /// Creates and starts an updater that reports to this delegate; null if the program has none.
    using MakeController = std::function<std::unique_ptr<UpdaterController>(UpdaterDelegate&)>;

    /// Creates the updater at once. Its results arrive through the event loop.
    explicit UpdateManager(const MakeController& makeController);

    bool canCheckForUpdates() const { return _canCheckForUpdates; }

    UpdateAvailability updateAvailability() const { return _updateAvailability; }

    bool hasUpdater() const { return _updaterController != nullptr; }

    /// Starts a check by the user. Does nothing without an updater.
    void checkForUpdates();

    /// Brings the updater's dialog to the front, if there is one.
    void bringToFront();

    /// Removes unfinished downloads. Call at the end of the process; no other call may follow.
    void stop();

    void updaterDidFindValidUpdate(const QString& /*version*/) override
    {
        hear(UpdateAvailability::available);
    }

    void updaterDidNotFindUpdate(const QString& /*error*/) override
    {
        hear(UpdateAvailability::unavailable);
    }

Q_SIGNALS:
    void canCheckForUpdatesChanged();
    void updateAvailabilityChanged();

private:
    /// Passes a result on to the main thread.
    void hear(UpdateAvailability updateAvailability);
    void setCanCheckForUpdates(bool canCheckForUpdates);
    void setUpdateAvailability(UpdateAvailability updateAvailability);

    bool _canCheckForUpdates = false;
    UpdateAvailability _updateAvailability = UpdateAvailability::unknown;
    std::unique_ptr<UpdaterController> _updaterController;
    QMetaObject::Connection _canCheckForUpdatesObservation;
};

}  // namespace TarnwickDirect

#include "TarnwickDirect/UpdateManager.h"

#include <utility>

namespace TarnwickDirect {

UpdateManager::UpdateManager(const MakeController& makeController)
    : _updaterController(makeController(*this))
{
    connect(
        this,
        &UpdateManager::canCheckForUpdatesHeard,
        this,
        &UpdateManager::setCanCheckForUpdates,
        Qt::QueuedConnection);
    connect(
        this,
        &UpdateManager::updateAvailabilityHeard,
        this,
        &UpdateManager::setUpdateAvailability,
        Qt::QueuedConnection);
    if (_updaterController) {
        _canCheckForUpdatesObservation = connect(
            _updaterController.get(),
            &UpdaterController::canCheckForUpdatesChanged,
            this,
            [this](bool canCheck) { Q_EMIT canCheckForUpdatesHeard(canCheck, QPrivateSignal()); });
        Q_EMIT canCheckForUpdatesHeard(_updaterController->canCheckForUpdates(), QPrivateSignal());
    }
}

void UpdateManager::checkForUpdates()
{
    setUpdateAvailability(UpdateAvailability::checking);
    if (_updaterController) {
        _updaterController->checkForUpdates();
    }
}

void UpdateManager::bringToFront()
{
    if (_updaterController) {
        _updaterController->bringToFront();
    }
}

void UpdateManager::stop()
{
    if (_updaterController) {
        _updaterController->stop();
    }
}

void UpdateManager::updaterDidFindValidUpdate(const QString& /*version*/)
{
    Q_EMIT updateAvailabilityHeard(UpdateAvailability::available, QPrivateSignal());
}

void UpdateManager::updaterDidNotFindUpdate(const QString& /*error*/)
{
    Q_EMIT updateAvailabilityHeard(UpdateAvailability::unavailable, QPrivateSignal());
}

void UpdateManager::setCanCheckForUpdates(bool canCheckForUpdates)
{
    if (std::exchange(_canCheckForUpdates, canCheckForUpdates) != canCheckForUpdates) {
        Q_EMIT canCheckForUpdatesChanged();
    }
}

void UpdateManager::setUpdateAvailability(UpdateAvailability updateAvailability)
{
    if (std::exchange(_updateAvailability, updateAvailability) != updateAvailability) {
        Q_EMIT updateAvailabilityChanged();
    }
}

}  // namespace TarnwickDirect

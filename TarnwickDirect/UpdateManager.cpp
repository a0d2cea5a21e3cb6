#include "TarnwickDirect/UpdateManager.h"

#include <utility>

namespace TarnwickDirect {

UpdateManager::UpdateManager(const MakeController& makeController)
    : _updaterController(makeController(*this))
{
    if (!_updaterController) {
        return;
    }
    _canCheckForUpdatesObservation = connect(
        _updaterController.get(),
        &UpdaterController::canCheckForUpdatesChanged,
        this,
        &UpdateManager::setCanCheckForUpdates,
        Qt::QueuedConnection);
    const bool canCheck = _updaterController->canCheckForUpdates();
    QMetaObject::invokeMethod(
        this, [this, canCheck] { setCanCheckForUpdates(canCheck); }, Qt::QueuedConnection);
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

void UpdateManager::hear(UpdateAvailability updateAvailability)
{
    QMetaObject::invokeMethod(
        this,
        [this, updateAvailability] { setUpdateAvailability(updateAvailability); },
        Qt::QueuedConnection);
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

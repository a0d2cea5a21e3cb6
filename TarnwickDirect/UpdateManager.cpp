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
    QMetaObject::invokeMethod(
        this,
        [this, canCheck = _updaterController->canCheckForUpdates()] {
            setCanCheckForUpdates(canCheck);
        },
        Qt::QueuedConnection);
}

UpdateManager::~UpdateManager()
{
    disconnect(_canCheckForUpdatesObservation);
}

void UpdateManager::checkForUpdates()
{
    setUpdateAvailability(UpdateAvailability::checking);
    if (_updaterController) {
        _updaterController->checkForUpdates();
    }
}

void UpdateManager::updaterDidFindValidUpdate(const UpdateOffer& /*offer*/)
{
    QMetaObject::invokeMethod(
        this,
        [this] { setUpdateAvailability(UpdateAvailability::available); },
        Qt::QueuedConnection);
}

void UpdateManager::updaterDidNotFindUpdate(const QString& /*error*/)
{
    QMetaObject::invokeMethod(
        this,
        [this] { setUpdateAvailability(UpdateAvailability::unavailable); },
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

#include "Tarnwick/DesktopCollaborators.h"

#include "Tarnwick/Desktop/AutostartLoginItem.h"
#include "Tarnwick/Desktop/SystemPullRequestNotifier.h"
#include "Tarnwick/StandardCollaborators.h"

#include <QCoreApplication>
#include <QFile>

namespace Tarnwick {

PullRequestMenuModel::Collaborators desktopCollaborators(
    const std::map<std::string, std::string>& environment, const QDBusConnection& bus)
{
    auto collaborators = standardCollaborators(environment);
    const auto centre = std::make_shared<NotificationCentre>(bus, collaborators.clock);
    centre->setDelegate(
        std::make_shared<NotificationPresentationDelegate>(collaborators.navigation));
    collaborators.notifier = std::make_shared<SystemPullRequestNotifier>(centre);
    collaborators.loginItem = std::make_shared<AutostartLoginItem>(
        AutostartEntry::file(environment),
        QFile::encodeName(QCoreApplication::applicationFilePath()).toStdString());
    return collaborators;
}

}  // namespace Tarnwick

#include "Tarnwick/DesktopCollaborators.h"

#include "Tarnwick/Desktop/AutostartLoginItem.h"
#include "Tarnwick/Desktop/SystemMachineEvents.h"
#include "Tarnwick/Desktop/SystemPullRequestNotifier.h"
#include "Tarnwick/Persistence/IniDefaultsStore.h"
#include "Tarnwick/StandardCollaborators.h"

#include <QCoreApplication>
#include <QFile>

#include <utility>

namespace Tarnwick {
PullRequestMenuModel::Collaborators desktopCollaborators(
    const std::map<std::string, std::string>& environment,
    const QDBusConnection& bus,
    PanelDismissal dismissPanel,
    std::shared_ptr<Preload> preload)
{
    auto collaborators = standardCollaborators(environment, std::move(preload));
    collaborators.navigation = std::make_shared<ExternalNavigation>(
        ExternalNavigation::desktop(environment, std::move(dismissPanel)));
    const auto centre = std::make_shared<NotificationCentre>(bus, collaborators.clock);
    collaborators.notificationDelegate =
        std::make_shared<NotificationPresentationDelegate>(collaborators.navigation);
    centre->setDelegate(collaborators.notificationDelegate);
    collaborators.notifier = std::make_shared<SystemPullRequestNotifier>(centre);
    collaborators.loginItem = std::make_shared<AutostartLoginItem>(
        AutostartEntry::file(environment),
        QFile::encodeName(QCoreApplication::applicationFilePath()).toStdString());
    collaborators.blocked = BlockedPullRequestsFile::beside(collaborators.cache);
    collaborators.turns = KnownTurnsFile::beside(collaborators.cache);
    collaborators.settingsWatcher = std::make_shared<FileWatcher>(IniDefaultsStore::defaultFile());
    collaborators.machine = std::make_shared<SystemMachineEvents>();
    return collaborators;
}

}  // namespace Tarnwick

#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <QDBusConnection>

#include <map>
#include <string>

namespace Tarnwick {

/// The standard collaborators, extended for a program with a panel by desktop notifications, the
/// autostart entry and the dismissal of the panel. Main thread only. Requires: an application
/// object.
PullRequestMenuModel::Collaborators desktopCollaborators(
    const std::map<std::string, std::string>& environment,
    const QDBusConnection& bus,
    PanelDismissal dismissPanel,
    std::shared_ptr<Preload> preload);

}  // namespace Tarnwick

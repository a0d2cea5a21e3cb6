#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <QDBusConnection>

#include <map>
#include <string>

namespace Tarnwick {

/// The standard collaborators, with desktop notifications, the autostart entry and a panel to
/// dismiss. Main thread only. Requires: an application object.
PullRequestMenuModel::Collaborators desktopCollaborators(
    const std::map<std::string, std::string>& environment,
    const QDBusConnection& bus,
    PanelDismissal dismissPanel,
    std::shared_ptr<Preload> preload);

}  // namespace Tarnwick

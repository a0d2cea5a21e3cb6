#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <QDBusConnection>

#include <map>
#include <string>

namespace Tarnwick {

/// What the model stands on in a program with a panel: the standard collaborators, with the
/// notifications of the desktop, which open what is clicked, the user's autostart entry, and the
/// panel dismissed when something is opened.
/// Requires: an application object. Main thread only.
PullRequestMenuModel::Collaborators desktopCollaborators(
    const std::map<std::string, std::string>& environment,
    const QDBusConnection& bus,
    PanelDismissal dismissPanel,
    std::shared_ptr<Preload> preload);

}  // namespace Tarnwick

#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <map>
#include <memory>
#include <string>

namespace Tarnwick {

/// What the model stands on in the real program: the `gh` found through this environment, asked
/// about github.com, the user's settings and cache, and the system's clocks. Nobody is notified,
/// no login item is there and no panel to dismiss; `desktopCollaborators` has them. Where settings
/// and cache are being read already, `preload` says so.
PullRequestMenuModel::Collaborators standardCollaborators(
    const std::map<std::string, std::string>& environment,
    std::shared_ptr<Preload> preload = nullptr);

/// The user's settings, where the standard collaborators have them.
std::shared_ptr<DefaultsStore> openStandardDefaults();

}  // namespace Tarnwick

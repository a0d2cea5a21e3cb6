#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <map>
#include <memory>
#include <string>

namespace Tarnwick {

/// The real program's collaborators without a desktop: the `gh` found through this environment with
/// github.com, the user's settings and cache, and the system's clocks. No notifications, login item
/// or panel; see `desktopCollaborators`. `preload` may be null.
PullRequestMenuModel::Collaborators standardCollaborators(
    const std::map<std::string, std::string>& environment,
    std::shared_ptr<Preload> preload = nullptr);

}  // namespace Tarnwick

#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <map>
#include <string>

namespace Tarnwick {

/// What the model stands on in the real program: the `gh` found through this environment, asked
/// about github.com, the user's settings and cache, and the system's clocks. Nobody is notified,
/// no login item is there and no panel to dismiss; `desktopCollaborators` has them.
PullRequestMenuModel::Collaborators standardCollaborators(
    const std::map<std::string, std::string>& environment);

}  // namespace Tarnwick

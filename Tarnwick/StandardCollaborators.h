#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <map>
#include <string>

namespace Tarnwick {

/// What the model stands on in the real program: the `gh` found through this environment, asked
/// about github.com, the user's settings and cache, and the system's clocks. Nobody is notified and
/// no login item is there; whoever has a desktop puts its own in their places.
PullRequestMenuModel::Collaborators standardCollaborators(
    const std::map<std::string, std::string>& environment);

}  // namespace Tarnwick

#pragma once

#include "GitHubProvider/Process/Environment.h"

#include <filesystem>
#include <string>
#include <vector>

namespace Tarnwick {

/// A program to be started that outlives this one.
struct Launch {
    std::filesystem::path executable;
    std::vector<std::string> arguments;
    std::string activationToken;  ///< Lets it come to the front; empty when there is none.

    bool operator==(const Launch&) const = default;
};

/// The environment of a launched program: this one, with the token under both names that programs
/// look for. A token that this program was started with is its own and is not passed on. Safe from
/// any thread.
GitHub::Environment launchEnvironment(
    GitHub::Environment environment, const std::string& activationToken);

/// Starts the program on its own, with nothing to read and its output dropped, and reports nothing.
/// Returns as soon as it runs, or cannot. Safe from any thread.
void launchDetached(const Launch& launch, const GitHub::Environment& environment);

}  // namespace Tarnwick

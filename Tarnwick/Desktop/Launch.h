#pragma once

#include "GitHubProvider/Process/Environment.h"

#include <filesystem>
#include <string>
#include <vector>

namespace Tarnwick {

/// A program to start that outlives this one.
struct Launch {
    std::filesystem::path executable;
    std::vector<std::string> arguments;
    std::string activationToken;  ///< Lets it come to the front; may be empty.

    bool operator==(const Launch&) const = default;
};

/// The environment of a launched program: this one with the given token under both usual names.
/// This program's own startup token is removed. Safe from any thread.
GitHub::Environment launchEnvironment(
    GitHub::Environment environment, const std::string& activationToken);

/// Starts the program detached, without input and output. Errors are not reported. Returns at once.
/// Safe from any thread.
void launchDetached(const Launch& launch, const GitHub::Environment& environment);

}  // namespace Tarnwick

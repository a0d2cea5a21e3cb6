#pragma once

#include "GitHubProvider/GhDiscovery.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <vector>

namespace Tarnwick {

/// Where the `code` command of Visual Studio Code may be, best place first: four fixed places, the
/// last of them below HOME, then the folders of PATH, each taken as it stands. Safe from any
/// thread.
std::vector<std::filesystem::path> codeCandidates(const GitHub::Environment& environment);

/// The first candidate that is an executable file, or nothing. Safe from any thread.
std::optional<std::filesystem::path> codeExecutable(
    const GitHub::Environment& environment,
    const std::function<bool(const std::filesystem::path&)>& isExecutable);

}  // namespace Tarnwick

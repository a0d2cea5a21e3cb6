#pragma once

#include "GitHubProvider/Process/Environment.h"

#include <filesystem>
#include <optional>

namespace Tarnwick {

/// The editor's command `code`: the first executable of four fixed places, the last of them below
/// HOME, and the folders of PATH. Safe from any thread.
std::optional<std::filesystem::path> codeExecutable(
    const GitHub::Environment& environment,
    const GitHub::IsExecutable& isExecutable = GitHub::isExecutableFile);

}  // namespace Tarnwick

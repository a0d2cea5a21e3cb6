#pragma once

#include "GitHubProvider/Process/Environment.h"

#include <filesystem>
#include <optional>

namespace Tarnwick {

/// Finds the editor's `code` in fixed places, one below HOME, then on PATH. Safe from any thread.
std::optional<std::filesystem::path> codeExecutable(
    const GitHub::Environment& environment,
    const GitHub::IsExecutable& isExecutable = GitHub::isExecutableFile);

}  // namespace Tarnwick

#pragma once

#include "GitHubProvider/GhDiscovery.h"
#include "Tarnwick/Desktop/Launch.h"

#include <filesystem>
#include <functional>
#include <optional>

namespace TarnwickDirect {

/// What has the system's installer open a package file: the program that opens files of any kind,
/// or nothing where there is none. Safe from any thread. Requires: `isExecutable` can be called.
std::optional<Tarnwick::Launch> packageInstaller(
    const GitHub::Environment& environment,
    const std::function<bool(const std::filesystem::path&)>& isExecutable,
    const std::filesystem::path& package);

}  // namespace TarnwickDirect

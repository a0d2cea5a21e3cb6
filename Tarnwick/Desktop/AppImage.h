#pragma once

#include "GitHubProvider/GhDiscovery.h"

#include <filesystem>

namespace Tarnwick {

/// The AppImage that this executable runs from, or an empty path. APPIMAGE and APPDIR say so; they
/// count only when the executable lies within the latter, for programs that an AppImage starts
/// inherit them. Safe from any thread.
std::filesystem::path appImageOf(
    const GitHub::Environment& environment, const std::filesystem::path& executable);

/// The file by which this executable is started another time: its AppImage, where it runs from one,
/// which is mounted in another place each time. Safe from any thread.
std::filesystem::path startableFile(
    const GitHub::Environment& environment, const std::filesystem::path& executable);

}  // namespace Tarnwick

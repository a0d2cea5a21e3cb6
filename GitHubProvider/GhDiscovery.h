#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace GitHub {

/// Environment variables by name.
using Environment = std::map<std::string, std::string>;

/// The program of this name in each folder of PATH, in its order and each folder taken as it
/// stands. Safe from any thread.
std::vector<std::filesystem::path> searchPathCandidates(
    const Environment& environment, std::string_view program);

/// Where `gh` may be, best place first: three fixed places, then the folders of PATH, each taken as
/// it stands. Safe from any thread.
std::vector<std::filesystem::path> ghCandidates(const Environment& environment);

/// Whether this is a file that this process may execute. Safe from any thread.
bool isExecutableFile(const std::filesystem::path& path);

/// The first candidate that is an executable file, or nothing. Safe from any thread.
std::optional<std::filesystem::path> findGH(
    const Environment& environment,
    const std::function<bool(const std::filesystem::path&)>& isExecutable = isExecutableFile);

}  // namespace GitHub

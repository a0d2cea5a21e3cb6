#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace GitHub {

/// Environment variables by name. All functions here are safe from any thread.
using Environment = std::map<std::string, std::string>;

/// The variable's value; empty if unset.
std::string valueIn(const Environment& environment, const std::string& name);

using IsExecutable = std::function<bool(const std::filesystem::path&)>;

/// Whether this is a file that this process may execute.
bool isExecutableFile(const std::filesystem::path& path);

/// The first executable among `places`, then of this name on PATH; nothing when there is none.
/// Relative folders in PATH are used as they are.
std::optional<std::filesystem::path> findProgram(
    const Environment& environment,
    std::string_view name,
    const IsExecutable& isExecutable = isExecutableFile,
    std::vector<std::filesystem::path> places = {});

}  // namespace GitHub

#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace SampleGitHub {

using Environment = std::map<std::string, std::string>;

Environment currentEnvironment();

/// Makes `gh` use this configuration folder, and removes variables that affect its host, token or
/// output. Safe from any thread.
Environment withGhConfiguration(Environment environment, const std::filesystem::path& folder);

}  // namespace SampleGitHub

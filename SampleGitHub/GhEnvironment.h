#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace SampleGitHub {

/// An environment by name.
using Environment = std::map<std::string, std::string>;

/// The environment of this process.
Environment currentEnvironment();

/// `environment` made so that `gh` uses this configuration folder, and nothing else decides about
/// its host, its token and the form of its output. Safe from any thread.
Environment withGhConfiguration(Environment environment, const std::filesystem::path& folder);

}  // namespace SampleGitHub

#pragma once

#include "SampleGitHub/Scenario.h"

#include <filesystem>
#include <optional>

namespace SampleGitHub {

/// Writes a `GH_CONFIG_DIR` folder that makes `gh` use this socket: config.yml and, if signed in,
/// hosts.yml with the account and a fake token. Creates a missing folder. Throws
/// `std::runtime_error` with one English sentence, also if a file exists already.
void writeGhConfiguration(
    const std::filesystem::path& folder,
    const std::filesystem::path& socket,
    const std::optional<Account>& account);

}  // namespace SampleGitHub

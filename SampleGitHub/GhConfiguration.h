#pragma once

#include "SampleGitHub/Scenario.h"

#include <filesystem>
#include <optional>

namespace SampleGitHub {

/// Writes the two files of a `GH_CONFIG_DIR` folder that make `gh` talk to this socket: config.yml
/// and, when somebody is signed in, hosts.yml with the account and a token that opens nothing. The
/// folder is made when it is missing; files that are there already are kept, and refused. Throws
/// `std::runtime_error` with one English sentence.
void writeGhConfiguration(
    const std::filesystem::path& folder,
    const std::filesystem::path& socket,
    const std::optional<Account>& account);

}  // namespace SampleGitHub

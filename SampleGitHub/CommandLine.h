#pragma once

#include "PullRequestKit/Date.h"
#include "SampleGitHub/Fault.h"
#include "SampleGitHub/GitHub.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace SampleGitHub {

struct CommandLine {
    bool isHelpWanted = false;
    std::string scenario = "everyday";
    std::optional<std::filesystem::path> socket;
    std::optional<std::filesystem::path> configurationFolder;
    std::optional<std::filesystem::path> record;
    std::optional<PullRequestKit::Date> now;
    std::vector<Fault> faults;
    std::optional<std::string> account;  ///< The account signed in; empty: the scenario's.
    GitHubOptions gitHub;
    std::vector<std::string> command;  ///< After --exec; empty: serve until a signal.
};

/// Takes no program name. Throws `std::invalid_argument` with one English sentence.
CommandLine parseCommandLine(const std::vector<std::string>& arguments);

std::string helpText();

}  // namespace SampleGitHub

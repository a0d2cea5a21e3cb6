#pragma once

#include "PullRequestKit/Date.h"
#include "SampleGitHub/Fault.h"
#include "SampleGitHub/GitHub.h"

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace SampleGitHub {

/// What `tarnwick-sample-github` is asked to do.
struct CommandLine {
    bool isHelpWanted = false;
    std::string scenario = "everyday";
    std::optional<std::filesystem::path> socket;
    std::optional<std::filesystem::path> configurationFolder;
    std::optional<std::filesystem::path> record;
    std::optional<PullRequestKit::Date> now;
    std::vector<Fault> faults;
    std::optional<std::string> account;  ///< Who is signed in; empty: whom the scenario names.
    GitHubOptions gitHub;
    std::vector<std::string> command;  ///< What stands behind --exec; empty: serve until a signal.
};

/// Reads the arguments without the program's name. Throws `std::invalid_argument` with one English
/// sentence.
CommandLine parseCommandLine(const std::vector<std::string>& arguments);

std::string helpText();

}  // namespace SampleGitHub

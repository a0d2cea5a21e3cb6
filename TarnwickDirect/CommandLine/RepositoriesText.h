#pragma once

#include "PullRequestKit/RepositorySummary.h"
#include "TarnwickDirect/CommandLine/Terminal.h"

#include <set>
#include <string>
#include <vector>

namespace TarnwickDirect {

/// The repositories for a terminal, one to a line, the selected ones marked. Names are never cut,
/// for they are there to be typed; details that do not fit beside one stand below it. Safe from any
/// thread.
std::string repositoriesText(
    const std::vector<PullRequestKit::RepositorySummary>& repositories,
    const std::set<std::string>& selected,
    const TerminalTraits& terminal);

}  // namespace TarnwickDirect

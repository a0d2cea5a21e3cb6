#pragma once

#include "PullRequestKit/RepositorySummary.h"
#include "TarnwickDirect/CommandLine/Terminal.h"

#include <set>
#include <string>
#include <vector>

namespace TarnwickDirect {

/// One repository per line, with the selected ones marked. Names are never cut, because users
/// retype them; details that do not fit go below. Safe from any thread.
std::string repositoriesText(
    const std::vector<PullRequestKit::RepositorySummary>& repositories,
    const std::set<std::string>& selected,
    const TerminalTraits& terminal);

}  // namespace TarnwickDirect

#pragma once

#include "PullRequestKit/PullRequestRow.h"
#include "TarnwickDirect/CommandLine/Terminal.h"

#include <functional>
#include <string>
#include <vector>

namespace TarnwickDirect {

/// The rows as a tree for a terminal, a line each: number and title, repository, state, reviews,
/// checks; a warning has a line of its own below. Titles give way to the terminal's width; without
/// a terminal nothing is cut.
/// `isVisited` tells which pull requests the user has seen since they changed.
std::string listText(
    const std::vector<PullRequestKit::PullRequestRow>& rows,
    const std::function<bool(const PullRequestKit::PullRequest&)>& isVisited,
    const TerminalTraits& terminal);

}  // namespace TarnwickDirect

#pragma once

#include "TarnwickDirect/CommandLine/ShownList.h"
#include "TarnwickDirect/CommandLine/Terminal.h"

#include <functional>
#include <string>

namespace TarnwickDirect {

/// The rows as a tree for a terminal: number and title, repository, state, reviews, checks; a
/// warning stands below. By whose turn, each group has its heading, and the reason stands in front
/// of the repository. No line is wider than the terminal. Titles keep half of its width, of which
/// 50 columns are enough: where that leaves too little for the details, these stand on lines of
/// their own. Without a terminal nothing is cut and each pull request has one line. `isVisited`
/// tells which pull requests the user has seen since they changed.
std::string listText(
    const ShownList& list,
    const std::function<bool(const PullRequestKit::PullRequest&)>& isVisited,
    const TerminalTraits& terminal);

}  // namespace TarnwickDirect

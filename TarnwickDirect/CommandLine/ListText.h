#pragma once

#include "Tarnwick/Model/Arrangement.h"
#include "TarnwickDirect/CommandLine/Terminal.h"

#include <functional>
#include <string>

namespace TarnwickDirect {

/// Formats the rows as a tree: number and title, repository, state, reviews and checks, with
/// warnings below. By turn, groups have headings, and the reason precedes the repository. Lines do
/// not exceed the terminal's width. Titles get half of the width but need at most 50 columns; if
/// the details do not fit beside them, they go on further lines. Without a terminal nothing is cut
/// and each pull request has one line.
std::string listText(
    const Tarnwick::ArrangedRows& list,
    const std::function<bool(const PullRequestKit::PullRequest&)>& isVisited,
    const TerminalTraits& terminal);

}  // namespace TarnwickDirect

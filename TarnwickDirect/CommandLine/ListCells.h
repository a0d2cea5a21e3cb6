#pragma once

#include "PullRequestKit/PullRequest.h"
#include "PullRequestKit/Turn.h"
#include "Tarnwick/Model/Arrangement.h"
#include "TarnwickDirect/CommandLine/Terminal.h"

#include <string>
#include <vector>

namespace TarnwickDirect {

struct Cell {
    std::string text;
    Style style = Style::plain;
};

/// Number and title; faint if visited. Safe from any thread.
Cell titleCell(const PullRequestKit::PullRequest& pullRequest, bool isVisited);

/// The reason of the turn, strong if the user can act on it. If it needs more than `columns`
/// columns, all names but the first become a number; 0 means unlimited. Empty without a reason.
/// Safe from any thread.
Cell reasonCell(const PullRequestKit::Turn& turn, int columns);

/// The heading of a group with its count. Safe from any thread.
Cell headingCell(const Tarnwick::TurnGroup& group);

/// Repository, state, reviews and checks, in this order. Safe from any thread.
std::vector<Cell> detailCells(const PullRequestKit::PullRequest& pullRequest);

}  // namespace TarnwickDirect

#pragma once

#include "PullRequestKit/PullRequest.h"
#include "PullRequestKit/Turn.h"
#include "Tarnwick/Model/Arrangement.h"
#include "TarnwickDirect/CommandLine/Terminal.h"

#include <string>
#include <vector>

namespace TarnwickDirect {

/// A piece of text in one style.
struct Cell {
    std::string text;
    Style style = Style::plain;
};

/// Number and title; faint once the user has seen the pull request. Safe from any thread.
Cell titleCell(const PullRequestKit::PullRequest& pullRequest, bool isVisited);

/// The reason of the turn, strong where it asks something of the user. Where it takes more columns,
/// all names but the first become a number; 0 stands for any number of columns. Empty without a
/// reason. Safe from any thread.
Cell reasonCell(const PullRequestKit::Turn& turn, int columns);

/// The heading of a group with the number of its pull requests. Safe from any thread.
Cell headingCell(const Tarnwick::TurnGroup& group);

/// Repository, state, reviews and checks, in this order. Safe from any thread.
std::vector<Cell> detailCells(const PullRequestKit::PullRequest& pullRequest);

}  // namespace TarnwickDirect

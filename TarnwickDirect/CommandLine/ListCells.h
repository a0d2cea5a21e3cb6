#pragma once

#include "PullRequestKit/PullRequest.h"
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

/// Repository, state, reviews and checks, in this order. Safe from any thread.
std::vector<Cell> detailCells(const PullRequestKit::PullRequest& pullRequest);

}  // namespace TarnwickDirect

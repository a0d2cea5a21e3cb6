#pragma once

#include "PullRequestKit/PullRequestRow.h"
#include "PullRequestKit/Turn.h"
#include "Tarnwick/Model/Arrangement.h"

#include <span>

namespace TarnwickDirect {

/// What a command prints of the list. Requires: what is referred to outlives this.
struct ShownList {
    std::span<const PullRequestKit::PullRequestRow> rows;
    std::span<const PullRequestKit::Turn> turns = {};  ///< One for each row; empty by review state.
    std::span<const Tarnwick::TurnGroup> groups = {};  ///< Likewise.
};

}  // namespace TarnwickDirect

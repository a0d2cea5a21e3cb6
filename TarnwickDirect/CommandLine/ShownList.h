#pragma once

#include "PullRequestKit/PullRequestRow.h"
#include "PullRequestKit/Turn.h"
#include "Tarnwick/Model/Arrangement.h"

#include <span>

namespace TarnwickDirect {

/// The list as printed by a command. Requires: everything referred to outlives it.
struct ShownList {
    std::span<const PullRequestKit::PullRequestRow> rows;
    std::span<const PullRequestKit::Turn> turns = {};  ///< One per row; empty by review state.
    std::span<const Tarnwick::TurnGroup> groups = {};  ///< Empty by review state.
};

}  // namespace TarnwickDirect

#pragma once

#include "PullRequestKit/Turn.h"

#include <optional>
#include <vector>

namespace Tarnwick {

/// What a group of rows stands under.
struct GroupHeading {
    PullRequestKit::Whose whose = PullRequestKit::Whose::others;
    int rowCount = 0;     ///< Pull requests below it; dimmed ones do not count.
    int earnedCount = 0;  ///< Those of them that are themselves what the heading says.

    bool operator==(const GroupHeading&) const = default;
};

/// A heading that stays at the top while the rows below it are in sight.
struct StuckHeading {
    int index = 0;  ///< Of the heading, among all.
    int top = 0;    ///< Below the upper edge of what is in sight: 0, or above it when pushed out.

    bool operator==(const StuckHeading&) const = default;
};

/// `tops` are where the headings lie in the list, in ascending order, below the upper edge of what
/// is in sight. Nothing where none is at that edge or above it. Safe from any thread.
std::optional<StuckHeading> stuckHeading(const std::vector<int>& tops, int headingHeight);

}  // namespace Tarnwick

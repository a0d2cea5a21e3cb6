#pragma once

#include "PullRequestKit/Turn.h"

namespace Tarnwick {

/// What a group of rows stands under.
struct GroupHeading {
    PullRequestKit::Whose whose = PullRequestKit::Whose::others;
    int rowCount = 0;     ///< Pull requests below it; dimmed ones do not count.
    int earnedCount = 0;  ///< Those of them that are themselves what the heading says.

    bool operator==(const GroupHeading&) const = default;
};

}  // namespace Tarnwick

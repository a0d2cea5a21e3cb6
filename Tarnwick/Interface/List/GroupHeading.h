#pragma once

#include "PullRequestKit/Turn.h"

namespace Tarnwick {

/// The heading of a group of rows.
struct GroupHeading {
    PullRequestKit::Whose whose = PullRequestKit::Whose::others;
    int rowCount = 0;     ///< Without dimmed rows.
    int earnedCount = 0;  ///< Rows whose own turn is this one.

    bool operator==(const GroupHeading&) const = default;
};

}  // namespace Tarnwick

#pragma once

#include "PullRequestKit/PullRequestID.h"

#include <utility>
#include <vector>

namespace Tarnwick {

class PullRequestListView;

/// Where the rows in sight stand, so that the list can be put back to show the same ones at the
/// same height after it has changed or got other sizes. A list at its top stays there, or holds its
/// rows as any other.
/// Main thread only.
class ScrollAnchor {
public:
    enum class Top {
        isKept,  ///< A new first row comes in sight.
        isHeld,  ///< A new first row is above what is in sight.
    };

    explicit ScrollAnchor(const PullRequestListView& view, Top listTop = Top::isKept);

    /// Goes by the first row that is still there.
    void restore(PullRequestListView& view) const;

private:
    std::vector<std::pair<PullRequestKit::PullRequestID, int>> _tops;
};

}  // namespace Tarnwick

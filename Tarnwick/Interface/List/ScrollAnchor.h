#pragma once

#include "PullRequestKit/PullRequestID.h"

#include <utility>
#include <vector>

namespace Tarnwick {

class PullRequestListView;

/// Where the rows in sight stand, so that the list can be put back to show the same ones at the
/// same height after it has changed or got other sizes. A list at its top stays at its top.
/// Main thread only.
class ScrollAnchor {
public:
    explicit ScrollAnchor(const PullRequestListView& view);

    /// Goes by the first row that is still there.
    void restore(PullRequestListView& view) const;

private:
    std::vector<std::pair<PullRequestKit::PullRequestID, int>> _tops;
};

}  // namespace Tarnwick

#pragma once

#include "PullRequestKit/PullRequestID.h"

#include <unordered_set>
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

    /// A row that has gone to another place among the others.
    void addMoved(const PullRequestKit::PullRequestID& id) { _moved.insert(id); }

    /// Goes by the first row that is still there, of those that have not moved if there is one.
    void restore(PullRequestListView& view) const;

private:
    using Place = std::pair<PullRequestKit::PullRequestID, int>;

    std::vector<Place> _tops;
    std::unordered_set<PullRequestKit::PullRequestID> _moved;
};

}  // namespace Tarnwick

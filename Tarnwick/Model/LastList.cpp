#include "Tarnwick/Model/LastList.h"

#include "PullRequestKit/UniquePullRequests.h"
#include "Tarnwick/Model/RowFilter.h"

#include <utility>

namespace Tarnwick {

std::optional<LastList> lastList(
    std::optional<CachedPullRequestSnapshot> snapshot, const Settings& settings)
{
    if (!snapshot
        || (snapshot->reviewerScope
            && *snapshot->reviewerScope != reviewerScopeOf(settings.reviewerFilter))) {
        return std::nullopt;
    }
    snapshot->pullRequests = PullRequestKit::uniquePullRequests(std::move(snapshot->pullRequests));
    FilteredRows list = filteredRows(snapshot->pullRequests, settings);
    return LastList{std::move(*snapshot), std::move(list.rows), list.hidden};
}

}  // namespace Tarnwick

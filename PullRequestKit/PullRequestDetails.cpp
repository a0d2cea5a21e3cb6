#include "PullRequestKit/PullRequestDetails.h"

#include <cassert>
#include <cstddef>
#include <utility>

namespace PullRequestKit {

DetailsByID detailsByID(
    std::span<const PullRequest> pullRequests, std::vector<PullRequestDetails> details)
{
    DetailsByID byID;
    if (details.empty()) {
        return byID;
    }
    assert(details.size() == pullRequests.size());
    byID.reserve(pullRequests.size());
    std::unordered_map<const PullRequestDetails*, Date> updates;
    updates.reserve(pullRequests.size());
    for (std::size_t place = 0; place < pullRequests.size(); ++place) {
        const PullRequest& pullRequest = pullRequests[place];
        const auto [entry, isFirst] = byID.try_emplace(pullRequest.id);
        PullRequestDetails& kept = entry->second;
        Date& update = updates[&kept];
        const bool asksForUser = kept.asksForUser || details[place].asksForUser;
        if (isFirst || pullRequest.updatedAt > update) {
            kept = std::move(details[place]);
            update = pullRequest.updatedAt;
        }
        kept.asksForUser = asksForUser;
    }
    return byID;
}

}  // namespace PullRequestKit

#include "PullRequestKit/UniquePullRequests.h"

#include <unordered_map>

namespace PullRequestKit {

std::vector<PullRequest> uniquePullRequests(std::vector<PullRequest> pullRequests)
{
    std::vector<PullRequest> kept;
    kept.reserve(pullRequests.size());
    std::unordered_map<PullRequestID, std::size_t> positions;
    positions.reserve(pullRequests.size());
    for (PullRequest& pullRequest : pullRequests) {
        const auto [entry, isFirst] = positions.try_emplace(pullRequest.id, kept.size());
        if (isFirst) {
            kept.push_back(std::move(pullRequest));
        } else if (pullRequest.updatedAt > kept[entry->second].updatedAt) {
            kept[entry->second] = std::move(pullRequest);
        }
    }
    return kept;
}

}  // namespace PullRequestKit

#include "PullRequestKit/UniquePullRequests.h"

#include <unordered_set>

namespace PullRequestKit {
namespace {

// Hashes the list's entries in place: copying every identity would dominate the cost.
struct SameIdentity {
    std::size_t operator()(const PullRequest* pullRequest) const
    {
        return RecordHash{}(pullRequest->id);
    }

    bool operator()(const PullRequest* left, const PullRequest* right) const
    {
        return left->id == right->id;
    }
};

}  // namespace

std::vector<PullRequest> uniquePullRequests(std::vector<PullRequest> pullRequests)
{
    std::unordered_set<PullRequest*, SameIdentity, SameIdentity> known;
    known.reserve(pullRequests.size());
    std::size_t kept = 0;
    for (PullRequest& pullRequest : pullRequests) {
        const auto entry = known.find(&pullRequest);
        if (entry == known.end()) {
            PullRequest& place = pullRequests[kept++];
            if (&place != &pullRequest) {
                place = std::move(pullRequest);
            }
            known.insert(&place);
        } else if (pullRequest.updatedAt > (*entry)->updatedAt) {
            **entry = std::move(pullRequest);
        }
    }
    pullRequests.resize(kept);
    return pullRequests;
}

}  // namespace PullRequestKit

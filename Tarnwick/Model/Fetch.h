#pragma once

#include "PullRequestKit/PullRequestProvider.h"

#include <set>
#include <string>
#include <vector>

namespace Tarnwick {

/// What a refresh asks for.
struct FetchRequest {
    PullRequestKit::ReviewerScope reviewerScope = PullRequestKit::ReviewerScope::myself;
    std::set<std::string> repositories;
};

/// What came back.
struct FetchedPullRequests {
    std::vector<PullRequestKit::PullRequest> pullRequests;  ///< One per identity.
    std::vector<PullRequestKit::RepositorySummary> repositories;
};

/// Asks for the pull requests, then for the repositories. Blocks; call on a worker thread. Throws
/// what the provider throws.
FetchedPullRequests fetch(
    const PullRequestKit::PullRequestProvider& provider,
    const FetchRequest& request,
    std::stop_token stopToken);

}  // namespace Tarnwick

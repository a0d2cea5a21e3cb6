#pragma once

#include "PullRequestKit/PullRequestDetails.h"
#include "PullRequestKit/PullRequestProvider.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace Tarnwick {

/// What a refresh asks for.
struct FetchRequest {
    PullRequestKit::ReviewerScope reviewerScope = PullRequestKit::ReviewerScope::myself;
    std::set<std::string> repositories;
};

/// More pull requests than are listed.
struct Truncation {
    std::int64_t found = 0;
    std::int64_t listed = 0;

    bool operator==(const Truncation&) const = default;
};

/// What came back.
struct FetchedPullRequests {
    std::vector<PullRequestKit::PullRequest> pullRequests;  ///< One per identity.
    std::vector<PullRequestKit::RepositorySummary> repositories;
    std::optional<Truncation> truncation;  ///< When the provider knows of more.
    PullRequestKit::DetailsByID details = {};
};

/// Asks for the pull requests, then for the repositories. Blocks; call on a worker thread. Throws
/// what the provider throws.
FetchedPullRequests fetch(
    const PullRequestKit::PullRequestProvider& provider,
    const FetchRequest& request,
    std::stop_token stopToken);

}  // namespace Tarnwick

#pragma once

#include "PullRequestKit/PullRequestDetails.h"
#include "PullRequestKit/PullRequestProvider.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace Tarnwick {

struct FetchRequest {
    PullRequestKit::ReviewerScope reviewerScope = PullRequestKit::ReviewerScope::myself;
    std::set<std::string> repositories;
};

/// The provider has more pull requests than are listed.
struct Truncation {
    std::int64_t found = 0;
    std::int64_t listed = 0;

    bool operator==(const Truncation&) const = default;
};

struct FetchedPullRequests {
    std::vector<PullRequestKit::PullRequest> pullRequests;  ///< Without duplicates.
    std::vector<PullRequestKit::RepositorySummary> repositories;
    std::optional<Truncation> truncation;  ///< Set if the provider has more.
    PullRequestKit::DetailsByID details = {};
};

/// Fetches the pull requests and then the repositories. Blocks; call on a worker thread. Throws
/// what the provider throws.
FetchedPullRequests fetch(
    const PullRequestKit::PullRequestProvider& provider,
    const FetchRequest& request,
    std::stop_token stopToken);

}  // namespace Tarnwick

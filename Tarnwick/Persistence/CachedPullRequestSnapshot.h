#pragma once

#include "PullRequestKit/PullRequest.h"
#include "PullRequestKit/RepositorySummary.h"
#include "PullRequestKit/ReviewerScope.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace Tarnwick {

/// The result of a successful refresh and the settings it was fetched with, as stored in the cache.
/// The last four fields are absent in older files.
struct CachedPullRequestSnapshot {
    std::vector<PullRequestKit::PullRequest> pullRequests;
    std::vector<PullRequestKit::RepositorySummary> repositories;
    std::optional<std::string> account;
    PullRequestKit::Date refreshedAt{};
    std::optional<PullRequestKit::ReviewerScope> reviewerScope;
    std::optional<std::set<std::string>> repositoryScope;  ///< Full names.
    std::optional<std::set<std::string>> reviewFilters;    ///< Stored names.
    std::optional<std::set<PullRequestKit::PullRequestState>> states;

    bool operator==(const CachedPullRequestSnapshot&) const = default;
};

}  // namespace Tarnwick

// Stored: do not rename.
template<>
struct PullRequestKit::Json::Fields<Tarnwick::CachedPullRequestSnapshot> {
    using Snapshot = Tarnwick::CachedPullRequestSnapshot;
    static constexpr std::tuple table{
        field("pullRequests", &Snapshot::pullRequests),
        field("repositories", &Snapshot::repositories),
        field("account", &Snapshot::account),
        field("refreshedAt", &Snapshot::refreshedAt),
        field("reviewerScope", &Snapshot::reviewerScope),
        field("repositoryScope", &Snapshot::repositoryScope),
        field("reviewFilters", &Snapshot::reviewFilters),
        field("states", &Snapshot::states),
    };
};

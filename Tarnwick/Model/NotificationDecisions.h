#pragma once

#include "PullRequestKit/PullRequestRow.h"
#include "Tarnwick/Model/Settings.h"

#include <optional>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

namespace Tarnwick {

/// The settings behind the visible list. What appears because they changed is not new.
struct NotificationScope {
    std::optional<std::string> account;
    PullRequestKit::ReviewerScope reviewer = PullRequestKit::ReviewerScope::myself;
    std::set<std::string> repositories;
    std::set<ReviewFilter> reviewFilters;
    std::set<StatusFilter> statuses;
    std::set<ChecksFilter> checks;
    std::set<MergeabilityFilter> mergeabilities;

    bool operator==(const NotificationScope&) const = default;
};

NotificationScope notificationScope(
    const std::optional<std::string>& account, const Settings& settings);

/// What was visible after the last refresh.
struct NewPullRequestBaseline {
    NotificationScope scope;
    std::unordered_set<PullRequestKit::PullRequestID> ids;
    PullRequestKit::Date refreshedAt;
};

NewPullRequestBaseline makeBaseline(
    NotificationScope scope,
    const std::vector<PullRequestKit::PullRequestRow>& visible,
    PullRequestKit::Date refreshedAt);

/// The visible pull requests that were created since the baseline. Empty without a baseline or in
/// another scope. Safe from any thread.
std::vector<PullRequestKit::PullRequest> newPullRequests(
    const std::vector<PullRequestKit::PullRequestRow>& visible,
    const NotificationScope& scope,
    const std::optional<NewPullRequestBaseline>& baseline);

/// Blocked in `previous` and unblocked in `current`, without duplicates. Safe from any thread.
std::vector<PullRequestKit::PullRequest> newlyUnblockedPullRequests(
    const std::vector<PullRequestKit::PullRequest>& current,
    const std::vector<PullRequestKit::PullRequest>& previous);

}  // namespace Tarnwick

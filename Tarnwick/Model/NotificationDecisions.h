#pragma once

#include "PullRequestKit/PullRequestRow.h"
#include "Tarnwick/Model/Settings.h"

#include <optional>
#include <set>
#include <string>
#include <unordered_set>
#include <vector>

namespace Tarnwick {

/// What the user is looking at. Only pull requests that appear while it stays the same are new: the
/// others came in sight because something was chosen differently.
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

/// What was in sight at the last refresh.
struct NewPullRequestBaseline {
    NotificationScope scope;
    std::unordered_set<PullRequestKit::PullRequestID> ids;
    PullRequestKit::Date refreshedAt;
};

NewPullRequestBaseline makeBaseline(
    NotificationScope scope,
    const std::vector<PullRequestKit::PullRequestRow>& visible,
    PullRequestKit::Date refreshedAt);

/// The visible pull requests that came into being since the baseline was taken. Nothing is new
/// without a baseline or in another scope. Safe from any thread.
std::vector<PullRequestKit::PullRequest> newPullRequests(
    const std::vector<PullRequestKit::PullRequestRow>& visible,
    const NotificationScope& scope,
    const std::optional<NewPullRequestBaseline>& baseline);

/// The pull requests that were blocked in `previous` and are unblocked in `current`, once each.
/// Safe from any thread.
std::vector<PullRequestKit::PullRequest> newlyUnblockedPullRequests(
    const std::vector<PullRequestKit::PullRequest>& current,
    const std::vector<PullRequestKit::PullRequest>& previous);

}  // namespace Tarnwick

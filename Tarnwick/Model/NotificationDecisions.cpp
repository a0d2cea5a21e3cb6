#include "Tarnwick/Model/NotificationDecisions.h"

#include "PullRequestKit/UniquePullRequests.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

namespace Tarnwick {

using namespace PullRequestKit;

NotificationScope notificationScope(
    const std::optional<std::string>& account, const Settings& settings)
{
    return {
        .account = account,
        .reviewer = reviewerScopeOf(settings.reviewerFilter),
        .repositories = settings.selectedRepositories,
        .reviewFilters = settings.reviewFilters,
        .statuses = settings.statuses,
        .checks = settings.checks,
        .mergeabilities = settings.mergeabilities};
}

NewPullRequestBaseline makeBaseline(
    NotificationScope scope, const std::vector<PullRequestRow>& visible, Date refreshedAt)
{
    NewPullRequestBaseline baseline{std::move(scope), {}, refreshedAt};
    for (const PullRequestRow& row : visible) {
        baseline.ids.insert(row.id());
    }
    return baseline;
}

std::vector<PullRequest> newPullRequests(
    const std::vector<PullRequestRow>& visible,
    const NotificationScope& scope,
    const std::optional<NewPullRequestBaseline>& baseline)
{
    std::vector<PullRequest> found;
    if (!baseline || baseline->scope != scope) {
        return found;
    }
    for (const PullRequestRow& row : visible) {
        const auto& createdAt = row.pullRequest.createdAt;
        if (createdAt && *createdAt > baseline->refreshedAt && !baseline->ids.contains(row.id())) {
            found.push_back(row.pullRequest);
        }
    }
    return found;
}

std::vector<PullRequest> newlyUnblockedPullRequests(
    const std::vector<PullRequest>& current, const std::vector<PullRequest>& previous)
{
    std::unordered_set<PullRequestID> blocked;
    for (const PullRequest& pullRequest : previous) {
        if (pullRequest.isBlocked()) {
            blocked.insert(pullRequest.id);
        } else {
            blocked.erase(pullRequest.id);
        }
    }
    std::vector<PullRequest> found;
    std::ranges::copy_if(current, std::back_inserter(found), [&](const PullRequest& pullRequest) {
        return blocked.contains(pullRequest.id);
    });
    found = uniquePullRequests(std::move(found));
    std::erase_if(found, [](const PullRequest& pullRequest) { return !pullRequest.isUnblocked(); });
    return found;
}

}  // namespace Tarnwick

#include "Tarnwick/Model/NotificationDecisions.h"

#include "PullRequestKit/UniquePullRequests.h"

#include <unordered_map>
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
    std::unordered_map<PullRequestID, bool> wasBlocked;
    for (const PullRequest& pullRequest : previous) {
        wasBlocked[pullRequest.id] = pullRequest.isBlocked();
    }
    std::vector<PullRequest> found;
    for (PullRequest& pullRequest : uniquePullRequests(current)) {
        const auto before = wasBlocked.find(pullRequest.id);
        if (before != wasBlocked.end() && before->second && pullRequest.isUnblocked()) {
            found.push_back(std::move(pullRequest));
        }
    }
    return found;
}

}  // namespace Tarnwick

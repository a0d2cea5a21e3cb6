#include "PullRequestKit/SeenPullRequest.h"

namespace PullRequestKit {
namespace {

ChangeKind stateChange(PullRequestState state)
{
    switch (state) {
    case PullRequestState::open:
        return ChangeKind::reopened;
    case PullRequestState::closed:
        return ChangeKind::closed;
    case PullRequestState::merged:
        return ChangeKind::merged;
    }
    return ChangeKind::reopened;
}

ChangeKind reviewChange(ReviewState state)
{
    switch (state) {
    case ReviewState::none:
        return ChangeKind::noReviewers;
    case ReviewState::pending:
        return ChangeKind::reviewsPending;
    case ReviewState::approved:
        return ChangeKind::approved;
    case ReviewState::commented:
        return ChangeKind::commented;
    case ReviewState::changesRequested:
        return ChangeKind::changesRequested;
    }
    return ChangeKind::reviewsPending;
}

/// A changed result is reported instead of the count, which mostly changes with it.
void addReviews(
    std::vector<Change>& changes, const SeenPullRequest& before, const SeenPullRequest& after)
{
    if (before.reviewState != after.reviewState) {
        changes.push_back({reviewChange(after.reviewState), {}, {}});
    } else if (before.reviews.label() != after.reviews.label()) {
        changes.push_back({ChangeKind::reviews, before.reviews.label(), after.reviews.label()});
    }
}

/// `unknown` is no change: the service recomputes mergeability after each push to the base.
void addConflicts(
    std::vector<Change>& changes, const SeenPullRequest& before, const SeenPullRequest& after)
{
    const bool hadConflicts = before.mergeability == PullRequestMergeability::conflicting;
    if (after.mergeability == PullRequestMergeability::conflicting && !hadConflicts) {
        changes.push_back({ChangeKind::conflicts, {}, {}});
    } else if (after.mergeability == PullRequestMergeability::mergeable && hadConflicts) {
        changes.push_back({ChangeKind::conflictsResolved, {}, {}});
    }
}

void addChecks(
    std::vector<Change>& changes, const ProgressCount& before, const ProgressCount& after)
{
    if (before.label() != after.label()) {
        changes.push_back({ChangeKind::checks, before.label(), after.label()});
    } else if (before.failed != after.failed) {
        changes.push_back(
            {ChangeKind::failedChecks,
             std::to_string(before.failed),
             std::to_string(after.failed)});
    }
}

}  // namespace

SeenPullRequest seenNow(const PullRequest& pullRequest, const PullRequestFacts* facts)
{
    SeenPullRequest seen{
        .updatedAt = pullRequest.updatedAt,
        .state = pullRequest.state,
        .isDraft = pullRequest.isDraft,
        .mergeability = pullRequest.mergeability,
        .reviewState = pullRequest.reviewState,
        .reviews = {pullRequest.reviews.completed, pullRequest.reviews.total, 0},
        .checks = pullRequest.checks,
        .headCommit = {}};
    if (facts != nullptr && !facts->headCommit.empty()) {
        seen.headCommit = facts->headCommit;
    }
    return seen;
}

std::vector<Change> changesBetween(const SeenPullRequest& before, const SeenPullRequest& after)
{
    std::vector<Change> changes;
    if (before.state != after.state) {
        changes.push_back({stateChange(after.state), {}, {}});
    }
    if (before.isDraft != after.isDraft) {
        changes.push_back({after.isDraft ? ChangeKind::madeDraft : ChangeKind::madeReady, {}, {}});
    }
    addReviews(changes, before, after);
    addConflicts(changes, before, after);
    addChecks(changes, before.checks, after.checks);
    if (before.headCommit && after.headCommit && before.headCommit != after.headCommit) {
        changes.push_back({ChangeKind::newCommits, {}, {}});
    }
    return changes;
}

}  // namespace PullRequestKit

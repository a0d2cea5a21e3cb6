#include "PullRequestKit/PullRequestOrdering.h"

#include <array>

namespace PullRequestKit::PullRequestOrdering {
namespace {

int stateRank(PullRequestState state)
{
    switch (state) {
    case PullRequestState::open:
        return 0;
    case PullRequestState::merged:
        return 1;
    case PullRequestState::closed:
        return 2;
    }
    return 0;
}

int reviewRank(ReviewState state)
{
    switch (state) {
    case ReviewState::none:
        return 0;
    case ReviewState::pending:
        return 1;
    case ReviewState::commented:
        return 2;
    case ReviewState::approved:
        return 3;
    case ReviewState::changesRequested:
        return 4;
    }
    return 0;
}

std::array<int, 3> sortKey(const PullRequest& pullRequest)
{
    const ProgressCount& checks = pullRequest.checks;
    const bool checksArePending = checks.total != 0 && !checks.allComplete();
    return {
        stateRank(pullRequest.state),
        checksArePending ? 1 : 0,
        reviewRank(pullRequest.reviewState)};
}

}  // namespace

bool areInIncreasingOrder(const PullRequest& left, const PullRequest& right)
{
    const auto leftKey = sortKey(left);
    const auto rightKey = sortKey(right);
    if (leftKey != rightKey) {
        return leftKey < rightKey;
    }
    if (left.updatedAt != right.updatedAt) {
        return left.updatedAt > right.updatedAt;
    }
    return left.id.storageKey() < right.id.storageKey();
}

}  // namespace PullRequestKit::PullRequestOrdering

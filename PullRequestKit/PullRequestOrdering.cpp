#include "PullRequestKit/PullRequestOrdering.h"

#include <algorithm>
#include <array>
#include <utility>

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

/// The criteria that decide most comparisons, packed into a few bytes.
struct SortKey {
    std::array<int, 3> ranks;
    Date updatedAt;

    bool operator==(const SortKey&) const = default;
};

SortKey sortKey(const PullRequest& pullRequest)
{
    const ProgressCount& checks = pullRequest.checks;
    const bool checksArePending = checks.total != 0 && !checks.allComplete();
    return {
        {stateRank(pullRequest.state),
         checksArePending ? 1 : 0,
         reviewRank(pullRequest.reviewState)},
        pullRequest.updatedAt};
}

/// Requires: the keys differ.
bool goesBefore(const SortKey& left, const SortKey& right)
{
    return left.ranks != right.ranks ? left.ranks < right.ranks : left.updatedAt > right.updatedAt;
}

bool hasLesserStorageKey(const PullRequest& left, const PullRequest& right)
{
    return left.id.storageKey() < right.id.storageKey();
}

}  // namespace

bool areInIncreasingOrder(const PullRequest& left, const PullRequest& right)
{
    const SortKey leftKey = sortKey(left);
    const SortKey rightKey = sortKey(right);
    return leftKey != rightKey ? goesBefore(leftKey, rightKey) : hasLesserStorageKey(left, right);
}

std::vector<std::size_t> order(const std::vector<PullRequest>& pullRequests)
{
    std::vector<std::pair<SortKey, std::size_t>> entries;
    entries.reserve(pullRequests.size());
    for (const PullRequest& pullRequest : pullRequests) {
        entries.emplace_back(sortKey(pullRequest), entries.size());
    }
    std::ranges::stable_sort(entries, [&](const auto& left, const auto& right) {
        return left.first != right.first
                   ? goesBefore(left.first, right.first)
                   : hasLesserStorageKey(pullRequests[left.second], pullRequests[right.second]);
    });
    std::vector<std::size_t> positions(entries.size());
    std::ranges::transform(
        entries, positions.begin(), [](const auto& entry) { return entry.second; });
    return positions;
}

}  // namespace PullRequestKit::PullRequestOrdering

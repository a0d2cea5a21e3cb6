#include "Tarnwick/Model/RowFilter.h"

#include "PullRequestKit/StackBuilder.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <utility>

namespace Tarnwick {

using namespace PullRequestKit;

namespace {

bool passesStatus(const PullRequest& pullRequest, const Settings& settings)
{
    if (pullRequest.isDraft) {
        return settings.statuses.contains(StatusFilter::draft);
    }
    return pullRequest.state == PullRequestState::open
           && settings.statuses.contains(StatusFilter::open);
}

MergeabilityFilter mergeabilityCase(PullRequestMergeability mergeability)
{
    switch (mergeability) {
    case PullRequestMergeability::mergeable:
        return MergeabilityFilter::mergeable;
    case PullRequestMergeability::conflicting:
        return MergeabilityFilter::conflicting;
    case PullRequestMergeability::unknown:
        return MergeabilityFilter::unknown;
    }
    return MergeabilityFilter::unknown;
}

bool matchesReview(const ReviewActivity& activity, ReviewFilter filter)
{
    switch (filter) {
    case ReviewFilter::approved:
        return activity.hasApproval;
    case ReviewFilter::changesRequested:
        return activity.hasChangesRequested;
    case ReviewFilter::commented:
        return activity.hasCommentedReview;
    case ReviewFilter::none:
        return !activity.hasSubmittedReview;
    }
    return false;
}

bool passesReview(const PullRequest& pullRequest, const Settings& settings)
{
    const auto& filters = settings.reviewFilters;
    return filters.empty() || filters.size() == allCases<ReviewFilter>().size()
           || std::ranges::any_of(filters, [&](ReviewFilter filter) {
                  return matchesReview(pullRequest.reviewActivity, filter);
              });
}

/// Considers the filters but not mutes.
Sight sightByFilters(const PullRequest& pullRequest, const Settings& settings)
{
    if (!passesStatus(pullRequest, settings)) {
        return Sight::hiddenByStatus;
    }
    if (!settings.mergeabilities.contains(mergeabilityCase(pullRequest.mergeability))) {
        return Sight::hiddenByMergeability;
    }
    if (!passesReview(pullRequest, settings)) {
        return Sight::hiddenByReviews;
    }
    return settings.checks.contains(checksCase(pullRequest.checks)) ? Sight::inSight
                                                                    : Sight::hiddenByChecks;
}

/// Removes muted rows. Their children move up to the nearest ancestor that is left, or start a
/// stack.
std::vector<PullRequestRow> withoutMuted(std::vector<PullRequestRow> rows, const Settings& settings)
{
    std::vector<PullRequestRow> left;
    left.reserve(rows.size());
    std::vector<std::int64_t> depths;  // Depths of the current ancestors' children.
    for (PullRequestRow& row : rows) {
        depths.resize(static_cast<std::size_t>(row.depth));
        row.depth = depths.empty() ? 0 : depths.back();
        if (isMuted(sightOf(row.pullRequest, settings))) {
            depths.push_back(row.depth);
        } else {
            depths.push_back(row.depth + 1);
            left.push_back(std::move(row));
        }
    }
    return left;
}

}  // namespace

ChecksFilter checksCase(const ProgressCount& checks)
{
    if (checks.total == 0) {
        return ChecksFilter::none;
    }
    if (checks.failed >= 1) {
        return ChecksFilter::fail;
    }
    return checks.completed == checks.total ? ChecksFilter::pass : ChecksFilter::pending;
}

Sight sightOf(const PullRequest& pullRequest, const Settings& settings)
{
    if (!settings.selectedRepositories.contains(pullRequest.id.repository)) {
        return Sight::otherRepository;
    }
    if (muteOf(pullRequest, settings.mutes) != nullptr) {
        return Sight::muted;
    }
    if (settings.mutedAuthors.contains(pullRequest.author)) {
        return Sight::authorMuted;
    }
    return sightByFilters(pullRequest, settings);
}

FilteredRows filteredRows(const std::vector<PullRequest>& pullRequests, const Settings& settings)
{
    std::vector<PullRequest> shown;
    HiddenCounts hidden;
    bool hasMuted = false;
    for (const PullRequest& pullRequest : pullRequests) {
        const Sight sight = sightOf(pullRequest, settings);
        if (sight == Sight::inSight) {
            shown.push_back(pullRequest);
        } else if (isMuted(sight)) {
            ++hidden.muted;
            // Keeps the stack of the muted pull request together.
            if (sightByFilters(pullRequest, settings) == Sight::inSight) {
                shown.push_back(pullRequest);
                hasMuted = true;
            }
        } else if (isHidden(sight)) {
            ++hidden.filters;
        }
    }
    auto rows = StackBuilder::rows(std::move(shown));
    return {hasMuted ? withoutMuted(std::move(rows), settings) : std::move(rows), hidden};
}

std::vector<PullRequestRow> rowsWithHidden(
    const std::vector<PullRequest>& pullRequests, const Settings& settings)
{
    std::vector<PullRequest> selected;
    std::ranges::copy_if(
        pullRequests, std::back_inserter(selected), [&](const PullRequest& pullRequest) {
            return sightOf(pullRequest, settings) != Sight::otherRepository;
        });
    return StackBuilder::rows(std::move(selected));
}

}  // namespace Tarnwick

#include "Tarnwick/Model/RowFilter.h"

#include "PullRequestKit/StackBuilder.h"

#include <algorithm>
#include <iterator>

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

FilteredRows filteredRows(const std::vector<PullRequest>& pullRequests, const Settings& settings)
{
    std::vector<PullRequest> shown;
    HiddenCounts hidden;
    for (const PullRequest& pullRequest : pullRequests) {
        const Sight sight = sightOf(pullRequest, settings);
        if (sight == Sight::inSight) {
            shown.push_back(pullRequest);
        } else if (isMuted(sight)) {
            ++hidden.muted;
        } else if (isHidden(sight)) {
            ++hidden.filters;
        }
    }
    return {StackBuilder::rows(std::move(shown)), hidden};
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

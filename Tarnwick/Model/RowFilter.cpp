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

bool passesFilters(const PullRequest& pullRequest, const Settings& settings)
{
    return settings.selectedRepositories.contains(pullRequest.id.repository)
           && passesStatus(pullRequest, settings)
           && settings.mergeabilities.contains(mergeabilityCase(pullRequest.mergeability))
           && passesReview(pullRequest, settings)
           && settings.checks.contains(checksCase(pullRequest.checks));
}

std::vector<PullRequestRow> filteredRows(
    const std::vector<PullRequest>& pullRequests, const Settings& settings)
{
    std::vector<PullRequest> shown;
    std::ranges::copy_if(
        pullRequests, std::back_inserter(shown), [&](const PullRequest& pullRequest) {
            return passesFilters(pullRequest, settings);
        });
    return StackBuilder::rows(std::move(shown));
}

}  // namespace Tarnwick

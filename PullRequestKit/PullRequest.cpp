#include "PullRequestKit/PullRequest.h"

#include "PullRequestKit/Json/Reading.h"

namespace PullRequestKit {
namespace {

PullRequestMergeability mergeabilityFromConflict(bool hasMergeConflict)
{
    return hasMergeConflict ? PullRequestMergeability::conflicting
                            : PullRequestMergeability::unknown;
}

ReviewActivity activityFromState(ReviewState state, const ProgressCount& reviews)
{
    const bool hasApproval = state == ReviewState::approved;
    const bool hasChangesRequested = state == ReviewState::changesRequested;
    const bool hasCommentedReview = state == ReviewState::commented;
    return {
        .hasApproval = hasApproval,
        .hasChangesRequested = hasChangesRequested,
        .hasCommentedReview = hasCommentedReview,
        .hasSubmittedReview =
            reviews.completed >= 1 || hasApproval || hasChangesRequested || hasCommentedReview};
}

}  // namespace

std::string PullRequest::repositoryName() const
{
    const std::size_t last = id.repository.find_last_not_of('/');
    if (last == std::string::npos) {
        return id.repository;
    }
    const std::size_t slash = id.repository.rfind('/', last);
    const std::size_t first = slash == std::string::npos ? 0 : slash + 1;
    return id.repository.substr(first, last + 1 - first);
}

bool PullRequest::hasMergeConflict() const
{
    return mergeability == PullRequestMergeability::conflicting;
}

bool PullRequest::isBlocked() const
{
    return hasMergeConflict() || reviewState == ReviewState::changesRequested || checks.failed > 0;
}

bool PullRequest::isUnblocked() const
{
    const bool checksAreDone = checks.total == 0 || checks.allComplete();
    return state == PullRequestState::open && !isDraft
           && mergeability == PullRequestMergeability::mergeable
           && reviewState != ReviewState::changesRequested && checksAreDone;
}

std::string PullRequest::reviewCountLabel() const
{
    if (!requiredApprovingReviewCount) {
        return reviews.label();
    }
    return std::to_string(reviews.completed) + "/" + std::to_string(*requiredApprovingReviewCount)
           + "/" + std::to_string(reviews.total);
}

std::string PullRequest::reviewCountTooltip() const
{
    return requiredApprovingReviewCount ? "Completed/Required/Total Reviewers"
                                        : "Completed/Total Reviewers";
}

PullRequest makePullRequest(PullRequest fields, const PullRequestOmissions& omissions)
{
    fields.mergeability =
        omissions.mergeability.value_or(mergeabilityFromConflict(omissions.hasMergeConflict));
    fields.reviewActivity =
        omissions.reviewActivity.value_or(activityFromState(fields.reviewState, fields.reviews));
    return fields;
}

void Json::Fields<PullRequest>::finish(
    PullRequest& pullRequest, const boost::json::object& object, const Path& path)
{
    PullRequestOmissions omissions;
    if (presentMember(object, "mergeability") != nullptr) {
        omissions.mergeability = pullRequest.mergeability;
    } else if (const auto* const legacy = presentMember(object, "hasMergeConflict")) {
        omissions.hasMergeConflict = readBool(*legacy, path.member("hasMergeConflict"));
    }
    if (presentMember(object, "reviewActivity") != nullptr) {
        omissions.reviewActivity = pullRequest.reviewActivity;
        omissions.reviewActivity->hasCommentedReview |=
            pullRequest.reviewState == ReviewState::commented;
    }
    pullRequest = makePullRequest(std::move(pullRequest), omissions);
}

}  // namespace PullRequestKit

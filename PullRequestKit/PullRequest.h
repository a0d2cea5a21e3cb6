#pragma once

#include "PullRequestKit/BranchReference.h"
#include "PullRequestKit/ProgressCount.h"
#include "PullRequestKit/PullRequestID.h"
#include "PullRequestKit/PullRequestState.h"
#include "PullRequestKit/ReviewActivity.h"

#include <boost/json/fwd.hpp>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace PullRequestKit {

struct PullRequest {
    PullRequestID id;
    std::string title;
    Url url;             ///< The web page of the pull request.
    std::string author;  ///< Login.
    std::optional<Date> createdAt;
    Date updatedAt;
    PullRequestState state = PullRequestState::open;
    bool isDraft = false;
    PullRequestMergeability mergeability = PullRequestMergeability::unknown;
    BranchReference head;
    BranchReference base;
    ReviewState reviewState = ReviewState::none;
    ReviewActivity reviewActivity;
    ProgressCount reviews;
    std::optional<std::int64_t> requiredApprovingReviewCount;
    ProgressCount checks;

    /// The last component of the repository's name.
    std::string repositoryName() const;

    bool hasMergeConflict() const;

    /// Has a conflict, requested changes or a failed check.
    bool isBlocked() const;

    /// Waits for nothing but approvals. Not the negation of `isBlocked`: both can be false.
    bool isUnblocked() const;

    /// "completed/total", or "completed/required/total" when approvals are required.
    std::string reviewCountLabel() const;
    std::string reviewCountTooltip() const;

    bool operator==(const PullRequest&) const = default;
};

/// Fields that may be omitted on creation.
struct PullRequestOmissions {
    std::optional<PullRequestMergeability> mergeability;
    std::optional<ReviewActivity> reviewActivity;
    bool hasMergeConflict = false;  ///< Used when `mergeability` is omitted.
};

/// Completes `fields` with `mergeability` and `reviewActivity`. What is omitted is derived from the
/// conflict flag, and from the review state and count. Safe from any thread.
PullRequest makePullRequest(PullRequest fields, const PullRequestOmissions& omissions);

template<>
struct Json::Fields<PullRequest> {
    static constexpr std::tuple table{
        field("id", &PullRequest::id),
        field("title", &PullRequest::title),
        field("url", &PullRequest::url),
        field("author", &PullRequest::author),
        field("createdAt", &PullRequest::createdAt),
        field("updatedAt", &PullRequest::updatedAt),
        field("state", &PullRequest::state),
        field("isDraft", &PullRequest::isDraft),
        defaultedField("mergeability", &PullRequest::mergeability),
        field("head", &PullRequest::head),
        field("base", &PullRequest::base),
        field("reviewState", &PullRequest::reviewState),
        defaultedField("reviewActivity", &PullRequest::reviewActivity),
        field("reviews", &PullRequest::reviews),
        field("checks", &PullRequest::checks),
        field("requiredApprovingReviewCount", &PullRequest::requiredApprovingReviewCount),
    };

    /// Upgrades older documents: "hasMergeConflict", and a missing or older "reviewActivity".
    static void finish(
        PullRequest& pullRequest, const boost::json::object& object, const Path& path);
};

}  // namespace PullRequestKit

template<>
struct std::hash<PullRequestKit::PullRequest> : PullRequestKit::RecordHash {};

#pragma once

#include "PullRequestKit/EnumNames.h"
#include "PullRequestKit/Json/Fields.h"

#include <functional>

namespace PullRequestKit {

enum class ReviewState {
    none,     ///< No reviews and no review requests.
    pending,  ///< Requested, or reviewed without a verdict.
    approved,
    commented,
    changesRequested,
};

/// The kinds of reviews submitted, regardless of the overall result.
struct ReviewActivity {
    bool hasApproval = false;
    bool hasChangesRequested = false;
    bool hasCommentedReview = false;
    bool hasSubmittedReview = false;

    bool operator==(const ReviewActivity&) const = default;
};

// Stored: do not rename.
template<>
struct EnumNames<ReviewState> {
    static constexpr auto names = enumNames<ReviewState>({
        {ReviewState::none, "none"},
        {ReviewState::pending, "pending"},
        {ReviewState::approved, "approved"},
        {ReviewState::commented, "commented"},
        {ReviewState::changesRequested, "changesRequested"},
    });
};

template<>
struct Json::Fields<ReviewActivity> {
    static constexpr std::tuple table{
        field("hasApproval", &ReviewActivity::hasApproval),
        field("hasChangesRequested", &ReviewActivity::hasChangesRequested),
        defaultedField("hasCommentedReview", &ReviewActivity::hasCommentedReview),
        field("hasSubmittedReview", &ReviewActivity::hasSubmittedReview),
    };
};

}  // namespace PullRequestKit

template<>
struct std::hash<PullRequestKit::ReviewActivity> : PullRequestKit::RecordHash {};

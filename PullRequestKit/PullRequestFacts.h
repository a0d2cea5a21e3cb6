#pragma once

#include "PullRequestKit/PullRequestDetails.h"
#include "PullRequestKit/PullRequestID.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace PullRequestKit {

/// What the rules of the base branch make of the reviews.
enum class ReviewDecision {
    approved,
    changesRequested,
    reviewRequired,
};

/// The latest review that the user has given.
struct OwnReview {
    ReviewVerdict verdict = ReviewVerdict::pending;
    std::optional<Date> submittedAt;
    std::optional<std::string> commit;  ///< Its hash; nothing when the commit is gone.

    bool operator==(const OwnReview&) const = default;
};

/// A place in a stack that the service itself keeps.
struct StackPlace {
    std::int64_t number = 0;    ///< Of the stack.
    std::int64_t position = 0;  ///< From 1.
    std::int64_t size = 0;

    bool operator==(const StackPlace&) const = default;
};

/// What is asked for apart from the list, because the list's requests do not bring it. Facts are
/// optional: a pull request without them is listed as ever.
struct PullRequestFacts {
    Date askedAt;    ///< When they were asked for.
    Date updatedAt;  ///< Of the pull request that they were asked for.
    std::string headCommit;
    std::optional<ReviewDecision> reviewDecision;  ///< Nothing where no rule asks for reviews.
    bool isInMergeQueue = false;
    std::optional<std::int64_t> mergeQueuePosition;  ///< From 1.
    bool isAutoMergeEnabled = false;
    std::optional<OwnReview> ownReview;
    std::int64_t threadCount = 0;      ///< Review threads in all.
    std::int64_t openThreadCount = 0;  ///< Of the first hundred, those that are not resolved.
    std::optional<StackPlace> stackPlace;

    bool operator==(const PullRequestFacts&) const = default;
};

using FactsByID = std::unordered_map<PullRequestID, PullRequestFacts>;
using SharedFacts = std::shared_ptr<const FactsByID>;

/// What the service still grants within the hour.
struct Quota {
    std::int64_t limit = 0;
    std::int64_t remaining = 0;
    Date resetAt;

    bool operator==(const Quota&) const = default;
};

/// What came of asking for facts.
struct FactsAnswer {
    FactsByID facts;             ///< Of those that were asked for, the ones that have some.
    std::optional<Quota> quota;  ///< As of the last answer that told it.

    /// The service refuses requests for a while, as with `SecondaryLimitError`.
    bool hitSecondaryLimit = false;
};

}  // namespace PullRequestKit

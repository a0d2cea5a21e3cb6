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

enum class ReviewDecision {
    approved,
    changesRequested,
    reviewRequired,
};

struct OwnReview {
    ReviewVerdict verdict = ReviewVerdict::pending;
    std::optional<Date> submittedAt;
    std::optional<std::string> commit;  ///< Its hash; nothing when the commit no longer exists.

    bool operator==(const OwnReview&) const = default;
};

/// A position in one of the service's own stacks.
struct StackPlace {
    std::int64_t number = 0;    ///< Of the stack.
    std::int64_t position = 0;  ///< From 1.
    std::int64_t size = 0;

    bool operator==(const StackPlace&) const = default;
};

/// Additional data, requested separately from the list. A pull request may have none.
struct PullRequestFacts {
    Date askedAt;    ///< Time of the request.
    Date updatedAt;  ///< `updatedAt` of the pull request at the request.
    std::string headCommit;
    std::optional<ReviewDecision> reviewDecision;  ///< Nothing when no rule requires reviews.
    bool isInMergeQueue = false;
    std::optional<std::int64_t> mergeQueuePosition;  ///< From 1.
    bool isAutoMergeEnabled = false;
    std::optional<OwnReview> ownReview;
    std::int64_t threadCount = 0;
    std::int64_t openThreadCount = 0;  ///< Unresolved ones among the first hundred.
    std::optional<StackPlace> stackPlace;

    bool operator==(const PullRequestFacts&) const = default;
};

using FactsByID = std::unordered_map<PullRequestID, PullRequestFacts>;
using SharedFacts = std::shared_ptr<const FactsByID>;

/// The remaining requests of the current hour.
struct Quota {
    std::int64_t limit = 0;
    std::int64_t remaining = 0;
    Date resetAt;

    bool operator==(const Quota&) const = default;
};

struct FactsAnswer {
    FactsByID facts;             ///< Only pull requests with facts have an entry.
    std::optional<Quota> quota;  ///< From the last answer that contained it.

    /// The service refuses requests for a while; see `SecondaryLimitError`.
    bool hitSecondaryLimit = false;
};

}  // namespace PullRequestKit

#pragma once

#include "PullRequestKit/PullRequest.h"
#include "PullRequestKit/PullRequestFacts.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace PullRequestKit {

/// The state of a pull request that the user last saw.
struct SeenPullRequest {
    Date updatedAt;
    PullRequestState state = PullRequestState::open;
    bool isDraft = false;
    PullRequestMergeability mergeability = PullRequestMergeability::unknown;
    ReviewState reviewState = ReviewState::none;
    ProgressCount reviews;  ///< `failed` is always 0.
    ProgressCount checks;
    std::optional<std::string> headCommit;  ///< Nothing when unknown.

    bool operator==(const SeenPullRequest&) const = default;
};

/// The current state; `facts` may be null. Safe from any thread.
SeenPullRequest seenNow(const PullRequest& pullRequest, const PullRequestFacts* facts);

enum class ChangeKind {
    closed,
    merged,
    reopened,
    madeDraft,
    madeReady,
    approved,
    changesRequested,
    commented,
    reviewsPending,
    noReviewers,
    reviews,  ///< The count.
    conflicts,
    conflictsResolved,
    checks,        ///< The count.
    failedChecks,  ///< The number of failures, when the count is unchanged.
    newCommits,
};

struct Change {
    ChangeKind kind = ChangeKind::closed;
    std::string before;  ///< A count such as "4/4"; otherwise empty.
    std::string after;   ///< Likewise.

    bool operator==(const Change&) const = default;
};

/// The changes in the order of `ChangeKind`, each kind at most once. An unknown mergeability or
/// head commit and a new `updatedAt` are no changes. Safe from any thread.
std::vector<Change> changesBetween(const SeenPullRequest& before, const SeenPullRequest& after);

}  // namespace PullRequestKit

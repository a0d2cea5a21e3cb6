#pragma once

#include "PullRequestKit/PullRequest.h"
#include "PullRequestKit/PullRequestFacts.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace PullRequestKit {

/// What the user has seen of a pull request.
struct SeenPullRequest {
    Date updatedAt;
    PullRequestState state = PullRequestState::open;
    bool isDraft = false;
    PullRequestMergeability mergeability = PullRequestMergeability::unknown;
    ReviewState reviewState = ReviewState::none;
    ProgressCount reviews;  ///< Nothing of them has failed.
    ProgressCount checks;
    std::optional<std::string> headCommit;  ///< Nothing when it was not known.

    bool operator==(const SeenPullRequest&) const = default;
};

/// The pull request as it is; `facts` may be null. Safe from any thread.
SeenPullRequest seenNow(const PullRequest& pullRequest, const PullRequestFacts* facts);

/// What can be said of a difference.
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
    reviews,  ///< Their count.
    conflicts,
    conflictsResolved,
    checks,        ///< Their count.
    failedChecks,  ///< Their number, where the count is the same.
    newCommits,
};

struct Change {
    ChangeKind kind = ChangeKind::closed;
    std::string before;  ///< Of a count, such as "4/4"; otherwise empty.
    std::string after;   ///< Likewise.

    bool operator==(const Change&) const = default;
};

/// What is different, in the order of `ChangeKind`, each kind at most once. That a mergeability is
/// unknown, or a head commit, is no difference, and neither is another `updatedAt`. Safe from any
/// thread.
std::vector<Change> changesBetween(const SeenPullRequest& before, const SeenPullRequest& after);

}  // namespace PullRequestKit

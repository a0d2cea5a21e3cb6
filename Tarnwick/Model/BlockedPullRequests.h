#pragma once

#include "PullRequestKit/PullRequest.h"

#include <chrono>
#include <vector>

namespace Tarnwick {

/// The blocked pull requests. While checks run or mergeability is being computed, a pull request is
/// neither blocked nor unblocked, and its last certain state counts.
struct BlockedPullRequests {
    /// Pull requests not listed for this long are forgotten.
    static constexpr std::chrono::days memory{90};

    struct Entry {
        PullRequestKit::PullRequest pullRequest;  ///< The last blocked version.
        PullRequestKit::Date listedAt{};          ///< The last refresh that listed it.

        bool operator==(const Entry&) const = default;
    };

    PullRequestKit::Date updatedAt{};  ///< The last refresh taken into account.
    std::vector<Entry> entries;        ///< One per pull request.

    /// Applies a refresh. Returns what became unblocked, again on each refresh until `settle`.
    std::vector<PullRequestKit::PullRequest> update(
        const std::vector<PullRequestKit::PullRequest>& current, PullRequestKit::Date now);

    /// Applies what another program found at `time`, unless older than `updatedAt`. Adds only
    /// blocked pull requests: no notification was shown for unblocked ones.
    void learn(const std::vector<PullRequestKit::PullRequest>& found, PullRequestKit::Date time);

    /// Forgets the pull request after its notification.
    void settle(const PullRequestKit::PullRequestID& id);

    bool operator==(const BlockedPullRequests&) const = default;

private:
    void remember(const std::vector<PullRequestKit::PullRequest>& found, PullRequestKit::Date time);
};

}  // namespace Tarnwick

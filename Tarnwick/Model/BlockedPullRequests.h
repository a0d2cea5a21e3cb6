#pragma once

#include "PullRequestKit/PullRequest.h"

#include <chrono>
#include <vector>

namespace Tarnwick {

/// The pull requests that were blocked when they were last certain to be blocked or unblocked.
/// While checks run, or GitHub works out whether there are conflicts, a pull request is neither,
/// and the version before that still counts. A value.
struct BlockedPullRequests {
    /// A pull request that was not listed for this long is forgotten.
    static constexpr std::chrono::days memory{90};

    struct Entry {
        PullRequestKit::PullRequest pullRequest;  ///< The last version that was blocked.
        PullRequestKit::Date listedAt{};          ///< The last refresh that listed it.

        bool operator==(const Entry&) const = default;
    };

    PullRequestKit::Date updatedAt{};  ///< The last refresh that this knows of.
    std::vector<Entry> entries;        ///< One to a pull request.

    /// Takes over what a refresh found, and yields the pull requests that were blocked and are
    /// unblocked now. These stay until they are settled, so that the next refresh yields them
    /// again.
    std::vector<PullRequestKit::PullRequest> update(
        const std::vector<PullRequestKit::PullRequest>& current, PullRequestKit::Date now);

    /// Takes over what another program found at `time`, unless this knows of a refresh as late.
    /// Only what it found blocked counts: nobody was told of what it found unblocked.
    void learn(const std::vector<PullRequestKit::PullRequest>& found, PullRequestKit::Date time);

    /// Forgets the pull request: whoever is to know that it is unblocked has been told.
    void settle(const PullRequestKit::PullRequestID& id);

    bool operator==(const BlockedPullRequests&) const = default;

private:
    void remember(const std::vector<PullRequestKit::PullRequest>& found, PullRequestKit::Date time);
};

}  // namespace Tarnwick

#pragma once

#include "PullRequestKit/PullRequestRow.h"
#include "Tarnwick/Model/HiddenCounts.h"
#include "Tarnwick/Model/Settings.h"

#include <vector>

namespace Tarnwick {

/// Whether a fetched pull request is in sight, and what hides it otherwise: the first of these that
/// holds.
enum class Sight {
    otherRepository,  ///< Its repository is not selected: it is not listed, nor counted as hidden.
    muted,
    authorMuted,
    hiddenByStatus,
    hiddenByMergeability,
    hiddenByReviews,
    hiddenByChecks,
    inSight,
};

constexpr bool isHidden(Sight sight)
{
    return sight != Sight::otherRepository && sight != Sight::inSight;
}

constexpr bool isMuted(Sight sight)
{
    return sight == Sight::muted || sight == Sight::authorMuted;
}

/// Which one case of the checks filter a pull request belongs to. Safe from any thread.
ChecksFilter checksCase(const PullRequestKit::ProgressCount& checks);

/// The one place that decides what is in sight. An empty selection of repositories, statuses,
/// checks or mergeabilities lets nothing through; no review filter lets everything through.
/// Safe from any thread.
Sight sightOf(const PullRequestKit::PullRequest& pullRequest, const Settings& settings);

/// What is in sight, ordered and stacked, and how much is not. A muted pull request is taken from
/// its stack, whose other ones keep their places.
struct FilteredRows {
    std::vector<PullRequestKit::PullRequestRow> rows;
    HiddenCounts hidden;
};

/// Requires: each pull request is there once. Safe from any thread.
FilteredRows filteredRows(
    const std::vector<PullRequestKit::PullRequest>& pullRequests, const Settings& settings);

/// The rows that there would be if nothing were hidden: each hidden pull request has the place in
/// the order and in its stack that is its own. Safe from any thread.
std::vector<PullRequestKit::PullRequestRow> rowsWithHidden(
    const std::vector<PullRequestKit::PullRequest>& pullRequests, const Settings& settings);

}  // namespace Tarnwick

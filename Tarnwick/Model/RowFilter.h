#pragma once

#include "PullRequestKit/PullRequestRow.h"
#include "Tarnwick/Model/HiddenCounts.h"
#include "Tarnwick/Model/Settings.h"

#include <vector>

namespace Tarnwick {

/// Whether a fetched pull request is visible, or the first reason that hides it.
enum class Sight {
    otherRepository,  ///< Not selected; not counted as hidden.
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

/// The only case of the checks filter that a pull request matches. Safe from any thread.
ChecksFilter checksCase(const PullRequestKit::ProgressCount& checks);

/// The single place that decides visibility. An empty set of repositories, statuses, checks or
/// mergeabilities matches nothing; an empty review filter matches everything. Safe from any thread.
Sight sightOf(const PullRequestKit::PullRequest& pullRequest, const Settings& settings);

/// The visible rows in order, and the number of hidden ones. Removing a muted pull request keeps
/// the rest of its stack in place.
struct FilteredRows {
    std::vector<PullRequestKit::PullRequestRow> rows;
    HiddenCounts hidden;
};

/// Requires: no duplicates. Safe from any thread.
FilteredRows filteredRows(
    const std::vector<PullRequestKit::PullRequest>& pullRequests, const Settings& settings);

/// All rows, with each hidden pull request in its place. Safe from any thread.
std::vector<PullRequestKit::PullRequestRow> rowsWithHidden(
    const std::vector<PullRequestKit::PullRequest>& pullRequests, const Settings& settings);

}  // namespace Tarnwick

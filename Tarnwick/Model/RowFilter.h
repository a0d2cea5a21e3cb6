#pragma once

#include "PullRequestKit/PullRequestRow.h"
#include "Tarnwick/Model/Settings.h"

#include <vector>

namespace Tarnwick {

/// Which one case of the checks filter a pull request belongs to. Safe from any thread.
ChecksFilter checksCase(const PullRequestKit::ProgressCount& checks);

/// Whether the filters let the pull request through. An empty selection of repositories, statuses,
/// checks or mergeabilities lets nothing through; no review filter lets everything through.
/// Safe from any thread.
bool passesFilters(const PullRequestKit::PullRequest& pullRequest, const Settings& settings);

/// The rows that the filters leave, ordered and stacked. Safe from any thread.
std::vector<PullRequestKit::PullRequestRow> filteredRows(
    const std::vector<PullRequestKit::PullRequest>& pullRequests, const Settings& settings);

}  // namespace Tarnwick

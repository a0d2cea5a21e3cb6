#pragma once

#include "PullRequestKit/PullRequestDetails.h"
#include "Tarnwick/Model/Arrangement.h"
#include "Tarnwick/Model/HiddenCounts.h"
#include "Tarnwick/Model/Settings.h"
#include "Tarnwick/Persistence/PullRequestDiskCache.h"
#include "Tarnwick/Persistence/PullRequestFactsFile.h"

#include <optional>

namespace Tarnwick {

/// The list of the last refresh, shown until the next one has finished.
struct LastList {
    CachedPullRequestSnapshot snapshot;  ///< Without duplicates.
    PullRequestKit::DetailsByID details;
    KeptFacts facts;
    ArrangedRows list;
    HiddenCounts hidden;
};

/// Applies the settings to the snapshot. Nothing without a snapshot or if it was fetched for
/// another `ReviewerFilter`. Safe from any thread.
std::optional<LastList> lastList(
    std::optional<CachedPullRequestSnapshot> snapshot,
    PullRequestKit::DetailsByID details,
    KeptFacts facts,
    const Settings& settings);

/// The same from disk; reads facts only if the settings need them. Blocks; safe from any thread.
std::optional<LastList> lastList(const PullRequestDiskCache& cache, const Settings& settings);

/// The facts beside the cache if the settings need them. Blocks; safe from any thread.
KeptFacts neededFacts(const PullRequestDiskCache& cache, const Settings& settings);

}  // namespace Tarnwick

#pragma once

#include "PullRequestKit/PullRequestDetails.h"
#include "Tarnwick/Model/Arrangement.h"
#include "Tarnwick/Model/HiddenCounts.h"
#include "Tarnwick/Model/Settings.h"
#include "Tarnwick/Persistence/PullRequestDiskCache.h"
#include "Tarnwick/Persistence/PullRequestFactsFile.h"

#include <optional>

namespace Tarnwick {

/// What the last refresh found, as it is shown until the next one has ended.
struct LastList {
    CachedPullRequestSnapshot snapshot;  ///< Each pull request once.
    PullRequestKit::DetailsByID details;
    KeptFacts facts;
    ArrangedRows list;
    HiddenCounts hidden;
};

/// What of the snapshot the settings leave, with the names behind its counts and the facts. Nothing
/// when there is no snapshot, or it was taken for other reviewers. Safe from any thread.
std::optional<LastList> lastList(
    std::optional<CachedPullRequestSnapshot> snapshot,
    PullRequestKit::DetailsByID details,
    KeptFacts facts,
    const Settings& settings);

/// What lies on disk, made ready in the same way; facts are read where the settings need them.
/// Blocks; safe from any thread.
std::optional<LastList> lastList(const PullRequestDiskCache& cache, const Settings& settings);

/// The facts beside the cache where the settings need them. Blocks; safe from any thread.
KeptFacts neededFacts(const PullRequestDiskCache& cache, const Settings& settings);

}  // namespace Tarnwick

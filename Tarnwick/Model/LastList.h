#pragma once

#include "PullRequestKit/PullRequestRow.h"
#include "Tarnwick/Model/HiddenCounts.h"
#include "Tarnwick/Model/Settings.h"
#include "Tarnwick/Persistence/CachedPullRequestSnapshot.h"

#include <optional>
#include <vector>

namespace Tarnwick {

/// What the last refresh found, as it is shown until the next one has ended.
struct LastList {
    CachedPullRequestSnapshot snapshot;  ///< Each pull request once.
    std::vector<PullRequestKit::PullRequestRow> rows;
    HiddenCounts hidden;
};

/// What of the snapshot the settings leave. Nothing when there is no snapshot, or it was taken for
/// other reviewers. Safe from any thread.
std::optional<LastList> lastList(
    std::optional<CachedPullRequestSnapshot> snapshot, const Settings& settings);

}  // namespace Tarnwick

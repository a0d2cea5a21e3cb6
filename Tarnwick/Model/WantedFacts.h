#pragma once

#include "PullRequestKit/PullRequestFacts.h"
#include "PullRequestKit/PullRequestRow.h"
#include "Tarnwick/Model/Settings.h"

#include <chrono>
#include <span>
#include <unordered_set>
#include <vector>

namespace Tarnwick {

/// Older facts are requested again.
inline constexpr std::chrono::minutes factsAge{30};

/// Whether any enabled feature shows turns. Notifications count only if `isNotifying`. Otherwise
/// facts are neither requested nor read.
bool needsFacts(const Settings& settings, bool isNotifying);

/// The pull requests whose facts have to be requested: without facts, changed since, with facts too
/// old or from the future (the clock was set back), or of unknown mergeability, which GitHub
/// computes on request. Excludes `asked`. Safe from any thread.
std::vector<PullRequestKit::PullRequest> wantingFacts(
    std::span<const PullRequestKit::PullRequestRow> rows,
    const PullRequestKit::FactsByID& facts,
    const std::unordered_set<PullRequestKit::PullRequestID>& asked,
    PullRequestKit::Date now);

}  // namespace Tarnwick

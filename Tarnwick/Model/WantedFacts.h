#pragma once

#include "PullRequestKit/PullRequestFacts.h"
#include "PullRequestKit/PullRequestRow.h"
#include "Tarnwick/Model/Settings.h"

#include <chrono>
#include <span>
#include <unordered_set>
#include <vector>

namespace Tarnwick {

/// Facts are asked for anew when they are older than this.
inline constexpr std::chrono::minutes factsAge{30};

/// Whether anything that is turned on says whose turn it is, notifications only in a program that
/// shows them. Otherwise facts are not asked for, nor read, because nothing would come of them.
bool needsFacts(const Settings& settings, bool isNotifying);

/// The pull requests among the rows whose facts are to be asked for: they have none, changed since,
/// have old ones (or ones from a time still to come, since the clock was set back), or their
/// mergeability is not known, which GitHub works out when it is asked about them. Those in `asked`
/// are left out. Safe from any thread.
std::vector<PullRequestKit::PullRequest> wantingFacts(
    std::span<const PullRequestKit::PullRequestRow> rows,
    const PullRequestKit::FactsByID& facts,
    const std::unordered_set<PullRequestKit::PullRequestID>& asked,
    PullRequestKit::Date now);

}  // namespace Tarnwick

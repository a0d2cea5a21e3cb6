#pragma once

#include "Tarnwick/Model/Filters.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

/// What settings written by older versions mean today. Pure functions; safe from any thread.
namespace Tarnwick::SettingsMigration {

/// The version of the stored filters that this program writes.
inline constexpr std::int64_t currentSchemaVersion = 2;

/// Before version 2 pull requests without checks counted as passed, and pending checks as failed.
std::set<ChecksFilter> checksBeforeVersion2(std::set<ChecksFilter> checks);

/// From the list "filters.reviewQuery" of search terms, such as "review:approved".
std::set<ReviewFilter> reviewFiltersFromQuery(const std::vector<std::string>& terms);

/// Before commented reviews could be told apart there were three cases, and choosing all of them
/// meant every pull request.
std::set<ReviewFilter> withCommentedReviews(std::set<ReviewFilter> filters);

/// From the flag "filters.mergeable" or, where that is absent, the list "filters.mergeConflicts".
std::set<MergeabilityFilter> mergeabilitiesFromOlderKeys(
    std::optional<bool> isMergeable, const std::optional<std::vector<std::string>>& mergeConflicts);

}  // namespace Tarnwick::SettingsMigration

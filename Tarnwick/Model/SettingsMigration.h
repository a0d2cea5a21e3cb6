#pragma once

#include "Tarnwick/Model/Filters.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

/// Migrates settings of older versions. Safe from any thread.
namespace Tarnwick::SettingsMigration {

/// The version of the stored filters.
inline constexpr std::int64_t currentSchemaVersion = 2;

/// Before version 2, pull requests without checks counted as passed, and pending checks as failed.
std::set<ChecksFilter> checksBeforeVersion2(std::set<ChecksFilter> checks);

/// From "filters.reviewQuery", a list of search terms such as "review:approved".
std::set<ReviewFilter> reviewFiltersFromQuery(const std::vector<std::string>& terms);

/// Adds the case for commented reviews where all three older cases were selected.
std::set<ReviewFilter> withCommentedReviews(std::set<ReviewFilter> filters);

/// From the flag "filters.mergeable" or, if absent, the list "filters.mergeConflicts".
std::set<MergeabilityFilter> mergeabilitiesFromOlderKeys(
    std::optional<bool> isMergeable, const std::optional<std::vector<std::string>>& mergeConflicts);

}  // namespace Tarnwick::SettingsMigration

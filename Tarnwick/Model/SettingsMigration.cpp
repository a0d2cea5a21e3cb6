#include "Tarnwick/Model/SettingsMigration.h"

#include "Tarnwick/Model/NamedSets.h"

namespace Tarnwick::SettingsMigration {

std::set<ChecksFilter> checksBeforeVersion2(std::set<ChecksFilter> checks)
{
    if (checks.contains(ChecksFilter::pass)) {
        checks.insert(ChecksFilter::none);
    }
    if (checks.contains(ChecksFilter::fail)) {
        checks.insert(ChecksFilter::pending);
    }
    return checks;
}

std::set<ReviewFilter> reviewFiltersFromQuery(const std::vector<std::string>& terms)
{
    std::set<ReviewFilter> filters;
    for (const std::string& term : terms) {
        if (term == "review:approved") {
            filters.insert(ReviewFilter::approved);
        } else if (term == "review:changes_requested") {
            filters.insert(ReviewFilter::changesRequested);
        } else if (term == "review:none") {
            filters.insert(ReviewFilter::none);
        }
    }
    return filters;
}

std::set<ReviewFilter> withCommentedReviews(std::set<ReviewFilter> filters)
{
    const std::set allOfOld{
        ReviewFilter::approved, ReviewFilter::changesRequested, ReviewFilter::none};
    if (filters == allOfOld) {
        filters.insert(ReviewFilter::commented);
    }
    return filters;
}

std::set<MergeabilityFilter> mergeabilitiesFromOlderKeys(
    std::optional<bool> isMergeable, const std::optional<std::vector<std::string>>& mergeConflicts)
{
    using enum MergeabilityFilter;
    if (isMergeable) {
        return *isMergeable ? std::set{mergeable} : std::set{conflicting, unknown};
    }
    if (mergeConflicts == std::vector<std::string>{"Conflicting"}) {
        return {conflicting, unknown};
    }
    if (mergeConflicts == std::vector<std::string>{"None"}) {
        return {mergeable, unknown};
    }
    return everyCase<MergeabilityFilter>();
}

}  // namespace Tarnwick::SettingsMigration

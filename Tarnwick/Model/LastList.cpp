#include "Tarnwick/Model/LastList.h"

#include "PullRequestKit/UniquePullRequests.h"
#include "Tarnwick/Model/RowFilter.h"
#include "Tarnwick/Model/WantedFacts.h"
#include "Tarnwick/Persistence/PullRequestDetailsFile.h"

#include <string>
#include <utility>

namespace Tarnwick {

std::optional<LastList> lastList(
    std::optional<CachedPullRequestSnapshot> snapshot,
    PullRequestKit::DetailsByID details,
    KeptFacts facts,
    const Settings& settings)
{
    if (!snapshot
        || (snapshot->reviewerScope
            && *snapshot->reviewerScope != reviewerScopeOf(settings.reviewerFilter))) {
        return std::nullopt;
    }
    snapshot->pullRequests = PullRequestKit::uniquePullRequests(std::move(snapshot->pullRequests));
    FilteredRows list = filteredRows(snapshot->pullRequests, settings);
    const PullRequestKit::FactsByID noFacts;
    const std::string login = snapshot->account.value_or("");
    ArrangedRows rows = arranged(
        settings.arrangement,
        std::move(list.rows),
        {snapshot->pullRequests, details, facts.facts ? *facts.facts : noFacts, login});
    return LastList{
        std::move(*snapshot), std::move(details), std::move(facts), std::move(rows), list.hidden};
}

std::optional<LastList> lastList(const PullRequestDiskCache& cache, const Settings& settings)
{
    auto snapshot = cache.load();
    if (!snapshot) {
        return std::nullopt;
    }
    auto details = PullRequestDetailsFile::beside(cache).load(*snapshot);
    auto facts = neededFacts(cache, settings);
    return lastList(std::move(snapshot), std::move(details), std::move(facts), settings);
}

KeptFacts neededFacts(const PullRequestDiskCache& cache, const Settings& settings)
{
    constexpr bool isNotifying = true;
    return needsFacts(settings, isNotifying) ? PullRequestFactsFile::beside(cache).load()
                                             : KeptFacts();
}

}  // namespace Tarnwick

#include "Tarnwick/Persistence/PullRequestDetailsFile.h"

#include "Tarnwick/Persistence/JsonFile.h"

#include <iterator>
#include <stdexcept>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace Tarnwick {

using PullRequestKit::DetailsByID;
using PullRequestKit::PullRequestDetails;
using PullRequestKit::SharedText;

namespace {

/// Maps names to indexes into a list without duplicates.
class NamePlaces {
public:
    explicit NamePlaces(std::vector<std::string>& names)
        : _names(names)
    {}

    std::vector<std::int64_t> of(const std::vector<SharedText>& checks)
    {
        std::vector<std::int64_t> places;
        places.reserve(checks.size());
        for (const SharedText& check : checks) {
            const auto next = static_cast<std::int64_t>(_names.size());
            const auto [entry, isNew] = _places.try_emplace(check.text(), next);
            if (isNew) {
                _names.push_back(check.text());
            }
            places.push_back(entry->second);
        }
        return places;
    }

private:
    std::vector<std::string>& _names;
    std::unordered_map<std::string_view, std::int64_t> _places;
};

std::vector<SharedText> namesAt(
    const std::vector<std::int64_t>& places, const std::vector<SharedText>& names)
{
    std::vector<SharedText> found;
    found.reserve(places.size());
    for (const std::int64_t place : places) {
        found.push_back(names.at(static_cast<std::size_t>(place)));
    }
    return found;
}

}  // namespace

KeptPullRequests keptForm(const CachedPullRequestSnapshot& snapshot, const DetailsByID& details)
{
    KeptPullRequests kept;
    kept.refreshedAt = snapshot.refreshedAt;
    NamePlaces places(kept.checkNames);
    for (const PullRequestKit::PullRequest& pullRequest : snapshot.pullRequests) {
        const auto found = details.find(pullRequest.id);
        if (found == details.end()) {
            continue;
        }
        const PullRequestDetails& known = found->second;
        kept.pullRequests.push_back(
            {found->first,
             KeptDetails{
                 known.requestedUsers,
                 known.requestedTeams,
                 known.reviews,
                 places.of(known.passedChecks),
                 places.of(known.failedChecks),
                 places.of(known.runningChecks),
                 known.requestLimit,
                 known.reviewLimit,
                 known.checkLimit,
                 known.asksForUser ? std::optional(true) : std::nullopt}});
    }
    return kept;
}

DetailsByID detailsOf(KeptPullRequests kept)
{
    const std::vector<SharedText> names(
        std::move_iterator(kept.checkNames.begin()), std::move_iterator(kept.checkNames.end()));
    DetailsByID details;
    details.reserve(kept.pullRequests.size());
    for (KeptPullRequest& pullRequest : kept.pullRequests) {
        if (!pullRequest.details) {
            continue;
        }
        KeptDetails& known = *pullRequest.details;
        details.try_emplace(
            std::move(pullRequest.id),
            PullRequestDetails{
                std::move(known.requestedUsers),
                std::move(known.requestedTeams),
                std::move(known.reviews),
                namesAt(known.passedChecks, names),
                namesAt(known.failedChecks, names),
                namesAt(known.runningChecks, names),
                known.requestLimit,
                known.reviewLimit,
                known.checkLimit,
                known.asksForUser.value_or(false)});
    }
    return details;
}

PullRequestDetailsFile PullRequestDetailsFile::beside(const PullRequestDiskCache& cache)
{
    return {cache.fileURL.parent_path() / "pull-request-details.json"};
}

void PullRequestDetailsFile::save(
    const CachedPullRequestSnapshot& snapshot, const DetailsByID& details) const
{
    JsonFile::save(keptForm(snapshot, details), fileURL, "The details of the pull requests");
}

DetailsByID PullRequestDetailsFile::load(const CachedPullRequestSnapshot& snapshot) const noexcept
{
    try {
        auto kept = JsonFile::loadVersion<KeptPullRequests>(
            KeptPullRequests::currentVersion, fileURL, largestFile);
        // Two concurrent processes may each have written one of the two files.
        return kept && kept->refreshedAt == snapshot.refreshedAt ? detailsOf(*std::move(kept))
                                                                 : DetailsByID();
    } catch (const std::out_of_range&) {
        return {};
    }
}

}  // namespace Tarnwick

#include "Tarnwick/Persistence/PullRequestDetailsFile.h"

#include "PullRequestKit/Json/Reading.h"
#include "PullRequestKit/Json/Writing.h"
#include "Tarnwick/Persistence/Files.h"

#include <system_error>
#include <utility>

namespace Tarnwick {

using PullRequestKit::DetailsByID;

PullRequestDetailsFile PullRequestDetailsFile::beside(const PullRequestDiskCache& cache)
{
    return {cache.fileURL.parent_path() / "pull-request-details.json"};
}

void PullRequestDetailsFile::save(
    const CachedPullRequestSnapshot& snapshot, const DetailsByID& details) const
{
    KeptPullRequests kept;
    kept.refreshedAt = snapshot.refreshedAt;
    for (const PullRequestKit::PullRequest& pullRequest : snapshot.pullRequests) {
        if (const auto found = details.find(pullRequest.id); found != details.end()) {
            kept.pullRequests.push_back({found->first, found->second});
        }
    }
    try {
        Files::replace(fileURL, PullRequestKit::Json::encode(kept), Files::ownerOnly);
    } catch (const std::system_error& error) {
        throw CacheWriteError(
            "The details of the pull requests could not be kept in " + fileURL.string() + ": "
            + error.code().message() + ".");
    }
}

DetailsByID PullRequestDetailsFile::load(const CachedPullRequestSnapshot& snapshot) const noexcept
{
    try {
        DetailsByID details;
        const auto text = Files::read(fileURL, largestFile);
        if (!text) {
            return {};
        }
        auto kept = PullRequestKit::Json::decode<KeptPullRequests>(*text);
        // Of two processes that refresh at the same time, each may have written one of the files.
        if (kept.version != KeptPullRequests::currentVersion
            || kept.refreshedAt != snapshot.refreshedAt) {
            return {};
        }
        for (KeptPullRequest& pullRequest : kept.pullRequests) {
            if (pullRequest.details) {
                details.try_emplace(std::move(pullRequest.id), *std::move(pullRequest.details));
            }
        }
        return details;
    } catch (const std::exception&) {
        return {};
    }
}

}  // namespace Tarnwick

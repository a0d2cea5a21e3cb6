#include "Tarnwick/Model/BlockedPullRequests.h"

#include "Tarnwick/Model/NotificationDecisions.h"

#include <unordered_map>

namespace Tarnwick {

using namespace PullRequestKit;

std::vector<PullRequest> BlockedPullRequests::update(
    const std::vector<PullRequest>& current, Date now)
{
    std::vector<PullRequest> lastDecided;
    lastDecided.reserve(entries.size());
    for (const Entry& entry : entries) {
        lastDecided.push_back(entry.pullRequest);
    }
    remember(current, now);
    std::erase_if(entries, [&](const Entry& entry) { return now - entry.listedAt > memory; });
    auto unblocked = newlyUnblockedPullRequests(current, lastDecided);
    // Only possible in a file written by another program.
    std::erase_if(
        unblocked, [](const PullRequest& pullRequest) { return pullRequest.isBlocked(); });
    return unblocked;
}

void BlockedPullRequests::learn(const std::vector<PullRequest>& found, Date time)
{
    if (time > updatedAt) {
        remember(found, time);
    }
}

void BlockedPullRequests::settle(const PullRequestID& id)
{
    std::erase_if(entries, [&](const Entry& entry) { return entry.pullRequest.id == id; });
}

void BlockedPullRequests::remember(const std::vector<PullRequest>& found, Date time)
{
    std::unordered_map<PullRequestID, std::size_t> known;
    for (std::size_t index = 0; index < entries.size(); ++index) {
        known.emplace(entries[index].pullRequest.id, index);
    }
    for (const PullRequest& pullRequest : found) {
        const auto entry = known.find(pullRequest.id);
        if (entry != known.end()) {
            entries[entry->second].listedAt = time;
            if (pullRequest.isBlocked()) {
                entries[entry->second].pullRequest = pullRequest;
            }
        } else if (pullRequest.isBlocked()) {
            known.emplace(pullRequest.id, entries.size());
            entries.push_back({pullRequest, time});
        }
    }
    updatedAt = time;
}

}  // namespace Tarnwick

#include "Tarnwick/Model/WantedFacts.h"

namespace Tarnwick {

using namespace PullRequestKit;

namespace {

bool isWanting(const PullRequest& pullRequest, const FactsByID& facts, Date now)
{
    const auto found = facts.find(pullRequest.id);
    if (found == facts.end() || pullRequest.mergeability == PullRequestMergeability::unknown) {
        return true;
    }
    const PullRequestFacts& known = found->second;
    return known.updatedAt != pullRequest.updatedAt || now - known.askedAt > factsAge
           || known.askedAt > now;
}

}  // namespace

bool needsFacts(const Settings& settings, bool isNotifying)
{
    return settings.arrangement == Arrangement::byWhoseTurn
           || (isNotifying && settings.yourTurnNotificationsEnabled);
}

std::vector<PullRequest> wantingFacts(
    std::span<const PullRequestRow> rows,
    const FactsByID& facts,
    const std::unordered_set<PullRequestID>& asked,
    Date now)
{
    std::vector<PullRequest> wanting;
    for (const PullRequestRow& row : rows) {
        if (!asked.contains(row.id()) && isWanting(row.pullRequest, facts, now)) {
            wanting.push_back(row.pullRequest);
        }
    }
    return wanting;
}

}  // namespace Tarnwick

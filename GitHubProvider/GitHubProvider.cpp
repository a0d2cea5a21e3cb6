#include "GitHubProvider/GitHubProvider.h"

#include "GitHubProvider/Authentication.h"
#include "GitHubProvider/BaseRules.h"
#include "GitHubProvider/PullRequestMapping.h"
#include "GitHubProvider/RepositoryListing.h"
#include "GitHubProvider/RepositorySearch.h"
#include "GitHubProvider/Search.h"
#include "GitHubProvider/SearchTrace.h"

#include <utility>

namespace GitHub {
namespace {

using PullRequestKit::PullRequest;
using PullRequestKit::PullRequestList;

std::set<std::string> baseRefIDs(const std::vector<SearchHit>& hits)
{
    std::set<std::string> ids;
    for (const SearchHit& hit : hits) {
        if (hit.baseRefID) {
            ids.insert(*hit.baseRefID);
        }
    }
    return ids;
}

std::optional<std::int64_t> requiredReviews(const SearchHit& hit, const BaseRuleCounts& counts)
{
    const auto count = hit.baseRefID ? counts.find(*hit.baseRefID) : counts.end();
    return count != counts.end() ? count->second : hit.requiredApprovingReviewCount;
}

/// The search index lags behind, so hits of a search for open pull requests may be closed.
PullRequestList openPullRequests(std::vector<SearchHit> hits, const BaseRuleCounts& counts)
{
    PullRequestList open;
    open.pullRequests.reserve(hits.size());
    open.details.reserve(hits.size());
    for (SearchHit& hit : hits) {
        if (hit.pullRequest && hit.pullRequest->state == PullRequestKit::PullRequestState::open) {
            hit.pullRequest->requiredApprovingReviewCount = requiredReviews(hit, counts);
            open.pullRequests.push_back(*std::move(hit.pullRequest));
            open.details.push_back(std::move(hit.details));
        }
    }
    return open;
}

}  // namespace

GitHubProvider::GitHubProvider(
    std::string host,
    FindGh findGh,
    std::shared_ptr<const CommandRunning> runner,
    LogSink log,
    WallClock wallClock,
    SteadyClock steadyClock,
    std::shared_ptr<SearchMemory> memory)
    : _host(std::move(host))
    , _gh(std::move(findGh), std::move(runner))
    , _log(std::move(log))
    , _steadyClock(std::move(steadyClock))
    , _wallClock(wallClock)
    , _memory(std::move(memory))
    , _ruleCache(std::move(wallClock))
    , _facts(_gh, _host, _wallClock)
{}

std::string_view GitHubProvider::id() const
{
    return providerID;
}

std::string_view GitHubProvider::displayName() const
{
    return "GitHub";
}

PullRequestKit::AuthenticationStatus GitHubProvider::authenticationStatus(
    std::stop_token stopToken) const
{
    return GitHub::authenticationStatus(_gh, _host, _wallClock, std::move(stopToken));
}

std::vector<PullRequestKit::RepositorySummary> GitHubProvider::repositories(
    std::stop_token stopToken) const
{
    return listRepositories(_gh, _host, std::move(stopToken));
}

std::vector<PullRequest> GitHubProvider::pullRequests(
    PullRequestKit::ReviewerScope reviewerScope,
    const std::set<std::string>& repositories,
    std::stop_token stopToken) const
{
    return listPullRequests(reviewerScope, repositories, std::move(stopToken)).pullRequests;
}

PullRequestList GitHubProvider::listPullRequests(
    PullRequestKit::ReviewerScope reviewerScope,
    const std::set<std::string>& repositories,
    std::stop_token stopToken) const
{
    _gh.requireFound();
    if (repositories.empty()) {
        return {};
    }
    SearchTrace trace(_log, _steadyClock);
    SearchResult result = RepositorySearch(_gh, _host, *_memory, _wallClock)
                              .run(reviewerScope, repositories, trace, stopToken);
    const std::set<std::string> ids = baseRefIDs(result.hits);
    const BaseRuleCounts counts = loadBaseRules(ids, _gh, _ruleCache, stopToken);
    trace.searchEnded(result.hits.size(), ids.size());
    // GitHub returns at most 1,000 results of a search, but the total count.
    const auto found = result.isCutOff ? result.matches : std::nullopt;
    PullRequestList list = openPullRequests(std::move(result.hits), counts);
    list.found = found;
    return list;
}

PullRequestKit::FactsAnswer GitHubProvider::facts(
    std::span<const PullRequest> pullRequests, std::stop_token stopToken) const
{
    return _facts.ask(pullRequests, stopToken);
}

}  // namespace GitHub

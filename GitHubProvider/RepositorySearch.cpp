#include "GitHubProvider/RepositorySearch.h"

#include "GitHubProvider/RepositoryCounts.h"
#include "PullRequestKit/Errors.h"
#include "PullRequestKit/Json/Reading.h"

#include <algorithm>
#include <chrono>
#include <exception>

namespace GitHub {

using PullRequestKit::Date;

namespace {

/// GitHub documents a limit of five operators, but not whether it holds for the advanced search.
/// Larger groups are tried first; this is the fallback when GitHub refuses them.
constexpr std::int64_t smallGroup = 6;

bool isRefusedForItsOperators(const PullRequestKit::ProviderError& error)
{
    return error.message().find("operators") != std::string::npos;
}

/// A time in the future means that the clock was set back.
bool isDue(const std::optional<Date>& askedAt, Date now)
{
    return !askedAt || *askedAt > now || now - *askedAt >= std::chrono::days(1);
}

bool foundNothing(const SearchResult& result)
{
    return result.hits.empty() && result.matches.value_or(0) == 0;
}

}  // namespace

struct RepositorySearch::Request {
    PullRequestKit::ReviewerScope reviewerScope;
    const std::set<std::string>& repositories;
    SearchTrace& trace;
    const std::stop_token& stopToken;
};

RepositorySearch::RepositorySearch(
    const Gh& gh, const std::string& host, SearchMemory& memory, const WallClock& clock)
    : _gh(gh)
    , _host(host)
    , _memory(memory)
    , _clock(clock)
{}

SearchResult RepositorySearch::run(
    PullRequestKit::ReviewerScope reviewerScope,
    const std::set<std::string>& repositories,
    SearchTrace& trace,
    const std::stop_token& stopToken) const
{
    const Request request{reviewerScope, repositories, trace, stopToken};
    const SearchKnowledge knowledge = _memory.load();
    if (knowledge.isGrouped) {
        return searchInGroups(request);
    }
    SearchResult result = searchIn(SearchForm::terms, {}, request);
    if (!foundNothing(result)) {
        rememberRepository(knowledge, result, request);
        return result;
    }
    if (repositories.size() < 2 || !isFoundToExclude(knowledge, request)) {
        return result;
    }
    trace.groupingStarted();
    return searchInGroups(request);
}

SearchResult RepositorySearch::searchInGroups(const Request& request) const
{
    SearchKnowledge knowledge = _memory.load();
    if (!knowledge.groupSize) {
        try {
            return searchIn(SearchForm::groups, {}, request);
        } catch (const PullRequestKit::ProviderError& error) {
            if (!isRefusedForItsOperators(error)) {
                throw;
            }
        }
        knowledge.groupSize = smallGroup;
        _memory.save(knowledge);
    }
    SearchBounds bounds;
    bounds.repositories = static_cast<std::size_t>(std::max(*knowledge.groupSize, std::int64_t{1}));
    return searchIn(SearchForm::groups, bounds, request);
}

SearchResult RepositorySearch::searchIn(
    SearchForm form, const SearchBounds& bounds, const Request& request) const
{
    const auto queries = searchQueries(request.reviewerScope, request.repositories, form, bounds);
    return searchEach(_gh, _host, queries, form, request.trace, request.stopToken);
}

/// Asks at most once a day, even when the request fails, and remembers the result.
bool RepositorySearch::isFoundToExclude(SearchKnowledge knowledge, const Request& request) const
{
    if (!isDue(knowledge.askedAt, now())) {
        return false;
    }
    const auto [first, second] =
        repositoriesToCount(request.repositories, knowledge.repository, now());
    knowledge.askedAt = now();
    _memory.save(knowledge);
    try {
        const CommandResult answer = _gh.run(countArguments(first, second), request.stopToken);
        const auto counts =
            PullRequestKit::Json::decode<RepositoryCountsEnvelope>(answer.standardOutput);
        const bool isWhole = answer.status == 0 && counts.failures().empty() && counts.data;
        knowledge.isGrouped = isWhole && counts.data->proveThatTermsExclude();
    } catch (const PullRequestKit::CancellationError&) {
        throw;
    } catch (const std::exception&) {
        return false;
    }
    if (knowledge.isGrouped) {
        _memory.save(knowledge);
    }
    return knowledge.isGrouped;
}

/// A known repository that is still searched is kept, so that the memory is seldom written.
void RepositorySearch::rememberRepository(
    SearchKnowledge knowledge, const SearchResult& result, const Request& request) const
{
    const auto isSearched = [&](const std::string& name) {
        return request.repositories.contains(name);
    };
    if (request.repositories.size() < 2
        || (knowledge.repository && isSearched(*knowledge.repository))) {
        return;
    }
    for (const SearchHit& hit : result.hits) {
        const auto& pullRequest = hit.pullRequest;
        if (pullRequest && isSearched(pullRequest->id.repository)) {
            knowledge.repository = pullRequest->id.repository;
            _memory.save(knowledge);
            return;
        }
    }
}

Date RepositorySearch::now() const
{
    return std::chrono::floor<std::chrono::seconds>(_clock());
}

}  // namespace GitHub

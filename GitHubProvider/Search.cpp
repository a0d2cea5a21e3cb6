#include "GitHubProvider/Search.h"

#include "GitHubProvider/PullRequestMapping.h"
#include "GitHubProvider/RequestFailure.h"
#include "GitHubProvider/SearchRecords.h"
#include "PullRequestKit/Errors.h"
#include "PullRequestKit/Json/Reading.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace GitHub {
namespace {

using PullRequestKit::ProviderError;

SearchPage decodePage(const CommandResult& result, SearchTrace& trace)
{
    if (result.status != 0) {
        throwRequestFailure(failureText(result, "gh could not load pull requests."));
    }
    auto envelope = PullRequestKit::Json::decode<SearchEnvelope>(result.standardOutput);
    if (const auto failures = envelope.failures(); !failures.empty()) {
        trace.pageHadErrors(failures.size());
        throwRequestFailure(graphQLMessage(failures));
    }
    if (!envelope.data) {
        throw ProviderError("GitHub returned no pull-request data.");
    }
    SearchPage& page = envelope.data->search;
    trace.pageLoaded(
        {.bytes = result.standardOutput.size(),
         .nodes = page.nodes.size(),
         .matches = page.issueCount,
         .hasNext = page.pageInfo.hasNextPage});
    return std::move(page);
}

SearchHit makeHit(Node node, const std::string& host, PullRequestKit::SharedTexts& texts)
{
    SearchHit hit;
    if (node.baseRef) {
        hit.baseRefID = node.baseRef->id;
        hit.requiredApprovingReviewCount = node.baseRef->requiredApprovingReviewCount();
    }
    if (auto mapped = mapPullRequest(std::move(node), host, std::nullopt, texts)) {
        hit.pullRequest = std::move(mapped->pullRequest);
        hit.details = std::move(mapped->details);
    }
    return hit;
}

/// Appends a page's hits and returns the cursor of the next page, if there is one.
std::optional<std::string> appendHits(
    std::vector<SearchHit>& hits,
    SearchPage page,
    const std::string& host,
    PullRequestKit::SharedTexts& texts)
{
    hits.reserve(hits.size() + page.nodes.size());
    for (Node& node : page.nodes) {
        hits.push_back(makeHit(std::move(node), host, texts));
    }
    if (!page.pageInfo.hasNextPage) {
        return std::nullopt;
    }
    if (!page.pageInfo.endCursor) {
        throw ProviderError("GitHub returned a page without a continuation cursor.");
    }
    return std::move(page.pageInfo.endCursor);
}

void throwIfStopped(const std::stop_token& stopToken)
{
    if (stopToken.stop_requested()) {
        throw PullRequestKit::CancellationError();
    }
}

bool isLaterUpdated(const SearchHit& left, const SearchHit& right)
{
    const auto instant = [](const SearchHit& hit) {
        return hit.pullRequest ? std::optional(hit.pullRequest->updatedAt) : std::nullopt;
    };
    return instant(left) > instant(right);
}

/// Appends the hits of another search and removes duplicates. Returns the number of duplicates.
std::int64_t join(std::vector<SearchHit>& hits, std::vector<SearchHit> more)
{
    std::unordered_map<PullRequestKit::PullRequestID, std::size_t> places;
    for (std::size_t place = 0; place < hits.size(); ++place) {
        const auto& pullRequest = hits[place].pullRequest;
        if (pullRequest) {
            places.try_emplace(pullRequest->id, place);
        }
    }
    std::int64_t doubles = 0;
    for (SearchHit& hit : more) {
        const auto known = hit.pullRequest ? places.find(hit.pullRequest->id) : places.end();
        if (known == places.end()) {
            hits.push_back(std::move(hit));
            continue;
        }
        ++doubles;
        SearchHit& there = hits[known->second];
        const bool asksForUser = there.details.asksForUser || hit.details.asksForUser;
        if (isLaterUpdated(hit, there)) {
            there = std::move(hit);
        }
        there.details.asksForUser = asksForUser;
    }
    return doubles;
}

}  // namespace

SearchResult search(
    const Gh& gh,
    const std::string& host,
    const SearchQuery& query,
    SearchForm form,
    SearchTrace& trace,
    std::stop_token stopToken)
{
    SearchResult found;
    PullRequestKit::SharedTexts texts;
    std::optional<std::string> cursor;
    trace.searchStarted(query.text);
    do {
        throwIfStopped(stopToken);
        trace.pageStarted();
        const CommandResult result = gh.run(searchArguments(query.text, cursor, form), stopToken);
        SearchPage page = decodePage(result, trace);
        found.matches = page.issueCount;
        cursor = appendHits(found.hits, std::move(page), host, texts);
    } while (cursor);
    for (SearchHit& hit : found.hits) {
        hit.details.asksForUser = hit.pullRequest && query.asksForUser;
    }
    found.isCutOff = std::cmp_greater(found.matches.value_or(0), found.hits.size());
    return found;
}

SearchResult searchEach(
    const Gh& gh,
    const std::string& host,
    const std::vector<SearchQuery>& queries,
    SearchForm form,
    SearchTrace& trace,
    std::stop_token stopToken)
{
    SearchResult all;
    for (const SearchQuery& query : queries) {
        SearchResult found = search(gh, host, query, form, trace, stopToken);
        if (&query == &queries.front()) {
            all = std::move(found);
            continue;
        }
        const std::int64_t handedOut = static_cast<std::int64_t>(found.hits.size());
        const std::int64_t doubles = join(all.hits, std::move(found.hits));
        all.matches =
            all.matches.value_or(0) + std::max(found.matches.value_or(0), handedOut) - doubles;
        all.isCutOff = all.isCutOff || found.isCutOff;
    }
    if (queries.size() > 1) {
        std::ranges::stable_sort(all.hits, isLaterUpdated);
    }
    return all;
}

}  // namespace GitHub

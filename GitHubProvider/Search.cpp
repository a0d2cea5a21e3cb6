#include "GitHubProvider/Search.h"

#include "GitHubProvider/PullRequestMapping.h"
#include "GitHubProvider/SearchQuery.h"
#include "GitHubProvider/SearchRecords.h"
#include "PullRequestKit/Errors.h"
#include "PullRequestKit/Json/Reading.h"

#include <utility>

namespace GitHubProvider {
namespace {

using PullRequestKit::ProviderError;

SearchPage decodePage(const CommandResult& result, SearchTrace& trace)
{
    if (result.status != 0) {
        throw ProviderError(failureText(result, "gh could not load pull requests."));
    }
    auto envelope = PullRequestKit::Json::decode<SearchEnvelope>(result.standardOutput);
    if (const auto failures = envelope.failures(); !failures.empty()) {
        trace.pageHadErrors(failures.size());
        throw graphQLError(failures);
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

SearchHit makeHit(Node node, const std::string& host)
{
    SearchHit hit;
    if (node.baseRef) {
        hit.baseRefID = node.baseRef->id;
        hit.requiredApprovingReviewCount = node.baseRef->requiredApprovingReviewCount();
    }
    if (auto mapped = mapPullRequest(std::move(node), host, std::nullopt)) {
        hit.pullRequest = std::move(mapped->pullRequest);
        hit.details = std::move(mapped->details);
    }
    return hit;
}

/// Appends a page's hits and says where the next page begins, if there is one.
std::optional<std::string> appendHits(
    std::vector<SearchHit>& hits, SearchPage page, const std::string& host)
{
    hits.reserve(hits.size() + page.nodes.size());
    for (Node& node : page.nodes) {
        hits.push_back(makeHit(std::move(node), host));
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

}  // namespace

SearchResult search(
    const Gh& gh,
    const std::string& host,
    const std::string& query,
    SearchTrace& trace,
    std::stop_token stopToken)
{
    SearchResult found;
    std::optional<std::string> cursor;
    do {
        throwIfStopped(stopToken);
        trace.pageStarted();
        const CommandResult result = gh.run(searchArguments(query, cursor), stopToken);
        SearchPage page = decodePage(result, trace);
        found.matches = page.issueCount;
        cursor = appendHits(found.hits, std::move(page), host);
    } while (cursor);
    return found;
}

}  // namespace GitHubProvider
    found.isCutOff = std::cmp_greater(found.matches.value_or(0), found.hits.size());

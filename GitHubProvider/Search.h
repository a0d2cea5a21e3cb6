#pragma once

#include "GitHubProvider/Gh.h"
#include "GitHubProvider/SearchQuery.h"
#include "GitHubProvider/SearchTrace.h"
#include "PullRequestKit/PullRequest.h"
#include "PullRequestKit/PullRequestDetails.h"

#include <cstdint>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace GitHub {

/// The part of a hit that is kept; the rest of the page is discarded.
struct SearchHit {
    /// Without the required approvals. Nothing when the hit is not a pull request.
    std::optional<PullRequestKit::PullRequest> pullRequest;
    PullRequestKit::PullRequestDetails details;  ///< Empty when there is no pull request.
    std::optional<std::string> baseRefID;

    /// The required approvals as far as the hit itself contains them.
    std::optional<std::int64_t> requiredApprovingReviewCount;

    bool operator==(const SearchHit&) const = default;
};

struct SearchResult {
    std::vector<SearchHit> hits;
    std::optional<std::int64_t> matches;  ///< GitHub's count, which may exceed the hits.
    bool isCutOff = false;                ///< GitHub counts more than it returns.
};

/// The hits of a query in GitHub's order, loaded page by page. Blocks; call on a worker thread.
/// Throws `ProviderError`, `DecodingError`, `CancellationError` and what `Gh::run` throws.
SearchResult search(
    const Gh& gh,
    const std::string& host,
    const SearchQuery& query,
    SearchForm form,
    SearchTrace& trace,
    std::stop_token stopToken);

/// The hits of several queries as one list, last updated first. A duplicate is kept once, in the
/// version updated last, and counted once in `matches`; `asksForUser` is set if any query says so.
/// Otherwise like `search`.
SearchResult searchEach(
    const Gh& gh,
    const std::string& host,
    const std::vector<SearchQuery>& queries,
    SearchForm form,
    SearchTrace& trace,
    std::stop_token stopToken);

}  // namespace GitHub

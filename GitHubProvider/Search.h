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

/// What is kept of a hit once its page is gone, a small part of what GitHub sends.
struct SearchHit {
    /// Without the number of approvals that its base branch requires. Nothing when the hit is no
    /// pull request.
    std::optional<PullRequestKit::PullRequest> pullRequest;
    PullRequestKit::PullRequestDetails details;  ///< Empty when there is no pull request.
    std::optional<std::string> baseRefID;

    /// What the hit itself says on the approvals that its base branch requires.
    std::optional<std::int64_t> requiredApprovingReviewCount;

    bool operator==(const SearchHit&) const = default;
};

struct SearchResult {
    std::vector<SearchHit> hits;
    std::optional<std::int64_t> matches;  ///< How many GitHub counts, which may be more.
    bool isCutOff = false;                ///< GitHub counts more than it hands out.
};

/// The hits of a query of this form, in GitHub's order, loaded page by page. Blocks; call on a
/// worker thread. Throws `ProviderError`, `DecodingError`, `CancellationError` and what `Gh::run`
/// throws; then nothing of what was loaded remains.
SearchResult search(
    const Gh& gh,
    const std::string& host,
    const SearchQuery& query,
    SearchForm form,
    SearchTrace& trace,
    std::stop_token stopToken);

/// The hits of several queries as one list, last updated first. A pull request that several of them
/// found is there once, in the version updated last, and counts once in `matches`; it asks for the
/// user when any of them says so. One query is loaded as `search` does it. Otherwise like `search`.
SearchResult searchEach(
    const Gh& gh,
    const std::string& host,
    const std::vector<SearchQuery>& queries,
    SearchForm form,
    SearchTrace& trace,
    std::stop_token stopToken);

}  // namespace GitHub

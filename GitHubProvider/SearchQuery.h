#pragma once

#include "PullRequestKit/ReviewerScope.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace GitHub {

/// How many entries of each list the search asks for. An answer with as many may lack some.
struct SearchLimits {
    static constexpr std::size_t reviewRequests = 50;
    static constexpr std::size_t reviews = 50;
    static constexpr std::size_t checks = 100;
};

/// How a search names several repositories.
enum class SearchForm {
    terms,   ///< `repo:a repo:b`, any of which a hit may match.
    groups,  ///< `(repo:a OR repo:b)`, which needs the advanced search.
};

/// What a search text may hold at most. The defaults are what the system takes as one argument.
struct SearchBounds {
    std::size_t bytes = largestSearchText;
    std::size_t repositories = SIZE_MAX;

    /// Linux takes arguments of 128 KiB with the zero byte at their end; "q=" stands before the
    /// text.
    static constexpr std::size_t largestSearchText = std::size_t{128} * 1024 - 1 - 2;
};

/// The text of one search, and what all its hits have in common.
struct SearchQuery {
    std::string text;
    bool asksForUser = false;  ///< They ask for the review of the user or of one of their teams.

    bool operator==(const SearchQuery&) const = default;
};

/// The searches for the open pull requests of these repositories, last updated first: one, or one
/// for each way in which the user can be involved. Each is made as few as fit into the bounds, for
/// a part of the repositories in their order. A single repository that is beyond them has a search
/// of its own. Safe from any thread.
std::vector<SearchQuery> searchQueries(
    PullRequestKit::ReviewerScope reviewerScope,
    const std::set<std::string>& repositories,
    SearchForm form = SearchForm::terms,
    const SearchBounds& bounds = {});

/// The arguments with which `gh` loads the first page of the query's hits, or the page at `cursor`.
/// Safe from any thread.
std::vector<std::string> searchArguments(
    const std::string& query,
    const std::optional<std::string>& cursor,
    SearchForm form = SearchForm::terms);

}  // namespace GitHub

#pragma once

#include "PullRequestKit/ReviewerScope.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace GitHub {

/// The maximum length of each requested list. A list of this length may be truncated.
struct SearchLimits {
    static constexpr std::size_t reviewRequests = 50;
    static constexpr std::size_t reviews = 50;
    static constexpr std::size_t checks = 100;
};

/// How a search names several repositories.
enum class SearchForm {
    terms,   ///< `repo:a repo:b`
    groups,  ///< `(repo:a OR repo:b)`, which needs the advanced search.
};

/// The limits of a search text. The defaults are those of the system.
struct SearchBounds {
    std::size_t bytes = largestSearchText;
    std::size_t repositories = SIZE_MAX;

    /// An argument on Linux has at most 128 KiB including its zero byte, and starts with "q=".
    static constexpr std::size_t largestSearchText = std::size_t{128} * 1024 - 1 - 2;
};

/// The text of one search and what it implies for its hits.
struct SearchQuery {
    std::string text;
    bool asksForUser = false;  ///< The hits request a review from the user or the user's teams.

    bool operator==(const SearchQuery&) const = default;
};

/// The searches for the open pull requests of these repositories, last updated first: one, or one
/// per way in which the user can be involved. Each is split into as few as the bounds allow; a
/// repository that exceeds them has a search of its own. Safe from any thread.
std::vector<SearchQuery> searchQueries(
    PullRequestKit::ReviewerScope reviewerScope,
    const std::set<std::string>& repositories,
    SearchForm form = SearchForm::terms,
    const SearchBounds& bounds = {});

/// The arguments of `gh` that load the page at `cursor`, or the first page. Safe from any thread.
std::vector<std::string> searchArguments(
    const std::string& query,
    const std::optional<std::string>& cursor,
    SearchForm form = SearchForm::terms);

}  // namespace GitHub

#pragma once

#include "SampleGitHub/Scenario.h"

#include <functional>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace SampleGitHub {

/// A search text that GitHub rejects or that the sample does not support.
class SearchError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The meaning of several `repo:` terms. GitHub has announced to change it from `any` to `all`.
enum class RepositoryTerms {
    any,
    all,  ///< Matches no pull request.
};

enum class SearchType {
    issue,
    issueAdvanced,  ///< Supports groups such as `(repo:a OR repo:b)`.
};

/// A parsed search for pull requests. Supports repositories and Tarnwick's terms: `is:pr`,
/// `is:open`, `archived:false`, `author:@me`, `-author:@me`, `review-requested:@me`,
/// `reviewed-by:@me` and `sort:updated-desc`.
struct SearchQuery {
    std::unordered_set<std::string> repositories;  ///< Empty: any.
    bool isImpossible = false;                     ///< Requires two repositories at once.
    std::set<std::string, std::less<>> terms;
};

/// Throws `SearchError` with one English sentence. Safe from any thread.
SearchQuery parseSearchQuery(
    std::string_view text,
    SearchType type = SearchType::issue,
    RepositoryTerms terms = RepositoryTerms::any);

/// The indexes of the matches in `scenario.pullRequests`, in the scenario's order or, with
/// `sort:updated-desc`, last updated first. Safe from any thread.
std::vector<std::size_t> search(const Scenario& scenario, const SearchQuery& query);

}  // namespace SampleGitHub

template<>
struct PullRequestKit::EnumNames<SampleGitHub::RepositoryTerms> {
    static constexpr auto names = enumNames<SampleGitHub::RepositoryTerms>({
        {SampleGitHub::RepositoryTerms::any, "any"},
        {SampleGitHub::RepositoryTerms::all, "all"},
    });
};

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

/// A search text that GitHub would not understand either, or that only the sample does not know.
class SearchError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// What several `repo:` terms mean. GitHub has announced to go from the one to the other.
enum class RepositoryTerms {
    any,
    all,  ///< Which no pull request matches.
};

/// Which of GitHub's searches.
enum class SearchType {
    issue,
    issueAdvanced,  ///< It knows groups such as `(repo:a OR repo:b)`.
};

/// GitHub's search for pull requests, as far as Tarnwick uses it: the repositories, and the terms
/// `is:pr`, `is:open`, `archived:false`, `author:@me`, `-author:@me`, `review-requested:@me`,
/// `reviewed-by:@me` and `sort:updated-desc`.
struct SearchQuery {
    std::unordered_set<std::string> repositories;  ///< Empty: any.
    bool isImpossible = false;                     ///< A hit would have to be in two repositories.
    std::set<std::string, std::less<>> terms;
};

/// Throws `SearchError` with one English sentence. Safe from any thread.
SearchQuery parseSearchQuery(
    std::string_view text,
    SearchType type = SearchType::issue,
    RepositoryTerms terms = RepositoryTerms::any);

/// The indexes of the matches in `scenario.pullRequests`, in the scenario's order or, with
/// `sort:updated-desc`, the last updated first. Safe from any thread.
std::vector<std::size_t> search(const Scenario& scenario, const SearchQuery& query);

}  // namespace SampleGitHub

template<>
struct PullRequestKit::EnumNames<SampleGitHub::RepositoryTerms> {
    static constexpr auto names = enumNames<SampleGitHub::RepositoryTerms>({
        {SampleGitHub::RepositoryTerms::any, "any"},
        {SampleGitHub::RepositoryTerms::all, "all"},
    });
};

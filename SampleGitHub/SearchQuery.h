#pragma once

#include "SampleGitHub/Scenario.h"

#include <optional>
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

enum class SearchOrder {
    updatedDescending,
    updatedAscending,
    createdDescending,
    createdAscending,
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

/// GitHub's search for pull requests, as far as the sample knows it: `is:` and `state:` with the
/// three states, `is:pr`, `is:draft`, `draft:`, `archived:`, `repo:`,
/// `author:`, `-author:`, `review-requested:`, `reviewed-by:` (`@me` is the user who is signed in),
/// `sort:`. Other words are
/// looked for in the titles.
struct SearchQuery {
    std::unordered_set<std::string> repositories;  ///< Empty: any.
    bool isImpossible = false;                     ///< A hit would have to be in two repositories.
    std::optional<PullRequestKit::PullRequestState> state;
    std::optional<bool> isDraft;
    std::optional<bool> isArchived;
    std::optional<std::string> author;
    std::optional<std::string> notAuthor;
    std::optional<std::string> reviewRequestedFrom;
    std::optional<std::string> reviewedBy;
    std::vector<std::string> words;  ///< In lower case.
    SearchOrder order = SearchOrder::createdDescending;
};

/// Throws `SearchError` with one English sentence. Safe from any thread.
SearchQuery parseSearchQuery(
    std::string_view text,
    SearchType type = SearchType::issue,
    RepositoryTerms terms = RepositoryTerms::any);

/// The places of the matches in `scenario.pullRequests`, in the order asked for; of equal dates the
/// one that the scenario names first comes first. Safe from any thread.
std::vector<std::size_t> search(const Scenario& scenario, const SearchQuery& query);

}  // namespace SampleGitHub

template<>
struct PullRequestKit::EnumNames<SampleGitHub::RepositoryTerms> {
    static constexpr auto names = enumNames<SampleGitHub::RepositoryTerms>({
        {SampleGitHub::RepositoryTerms::any, "any"},
        {SampleGitHub::RepositoryTerms::all, "all"},
    });
};

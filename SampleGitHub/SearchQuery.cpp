#include "SampleGitHub/SearchQuery.h"

#include <algorithm>
#include <array>
#include <utility>

namespace SampleGitHub {
namespace {

using PullRequestKit::PullRequestState;

std::string lowerCase(std::string_view text)
{
    std::string lower(text);
    for (char& character : lower) {
        if (character >= 'A' && character <= 'Z') {
            character = static_cast<char>(character - 'A' + 'a');
        }
    }
    return lower;
}

[[noreturn]] void throwUnknown(std::string_view term)
{
    throw SearchError("The sample GitHub does not know the search term " + std::string(term) + ".");
}

bool readFlag(std::string_view term, std::string_view value)
{
    if (value != "true" && value != "false") {
        throwUnknown(term);
    }
    return value == "true";
}

SearchOrder readOrder(std::string_view term, std::string_view value)
{
    constexpr std::array<std::pair<std::string_view, SearchOrder>, 6> orders{{
        {"updated", SearchOrder::updatedDescending},
        {"updated-desc", SearchOrder::updatedDescending},
        {"updated-asc", SearchOrder::updatedAscending},
        {"created", SearchOrder::createdDescending},
        {"created-desc", SearchOrder::createdDescending},
        {"created-asc", SearchOrder::createdAscending},
    }};
    const auto* const found =
        std::ranges::find(orders, value, [](const auto& o) { return o.first; });
    if (found == orders.end()) {
        throwUnknown(term);
    }
    return found->second;
}

void readIs(SearchQuery& query, std::string_view term, std::string_view value)
{
    if (const auto state = PullRequestKit::enumNamed<PullRequestState>(value)) {
        query.state = state;
    } else if (value == "draft") {
        query.isDraft = true;
    } else if (value != "pr") {
        throwUnknown(term);
    }
}

void readTerm(SearchQuery& query, std::string_view term)
{
    const std::size_t colon = term.find(':');
    if (colon == std::string_view::npos) {
        query.words.push_back(lowerCase(term));
        return;
    }
    const std::string_view name = term.substr(0, colon);
    const std::string_view value = term.substr(colon + 1);
    if (name == "is" || name == "state" || name == "type") {
        readIs(query, term, value);
    } else if (name == "draft") {
        query.isDraft = readFlag(term, value);
    } else if (name == "archived") {
        query.isArchived = readFlag(term, value);
    } else if (name == "repo") {
        query.repositories.insert(lowerCase(value));
    } else if (name == "author") {
        query.author = value;
    } else if (name == "review-requested") {
        query.reviewRequestedFrom = value;
    } else if (name == "sort") {
        query.order = readOrder(term, value);
    } else {
        throwUnknown(term);
    }
}

bool contains(const std::vector<std::string>& list, std::string_view text)
{
    return std::ranges::find(list, text) != list.end();
}

bool isRequestedFrom(
    const PullRequest& pullRequest, const std::optional<Account>& account, std::string_view user)
{
    const bool isAccount = account && (user == "@me" || user == account->login);
    if (!isAccount) {
        return contains(pullRequest.requestedUsers, user);
    }
    return contains(pullRequest.requestedUsers, account->login)
           || std::ranges::any_of(pullRequest.requestedTeams, [&](const std::string& team) {
                  return contains(account->teams, team);
              });
}

bool matchesPerson(
    const PullRequest& pullRequest, const std::optional<Account>& account, const SearchQuery& query)
{
    if (query.author) {
        const std::string author =
            *query.author == "@me" && account ? account->login : *query.author;
        if (pullRequest.author != author) {
            return false;
        }
    }
    return !query.reviewRequestedFrom
           || isRequestedFrom(pullRequest, account, *query.reviewRequestedFrom);
}

bool matchesContents(const PullRequest& pullRequest, const SearchQuery& query)
{
    if ((query.state && pullRequest.state != *query.state)
        || (query.isDraft && pullRequest.isDraft != *query.isDraft)) {
        return false;
    }
    if (query.words.empty()) {
        return true;
    }
    const std::string title = lowerCase(pullRequest.title);
    return std::ranges::all_of(query.words, [&](const std::string& word) {
        return title.find(word) != std::string::npos;
    });
}

/// The full names of the repositories that the search may look into.
std::unordered_set<std::string_view> searched(const Scenario& scenario, const SearchQuery& query)
{
    std::unordered_set<std::string_view> names;
    for (const Repository& repository : scenario.repositories) {
        const bool isWanted = query.repositories.empty()
                              || query.repositories.contains(lowerCase(repository.fullName));
        if (isWanted && (!query.isArchived || repository.isArchived == *query.isArchived)) {
            names.insert(repository.fullName);
        }
    }
    return names;
}

bool isBefore(const PullRequest& left, const PullRequest& right, SearchOrder order)
{
    switch (order) {
    case SearchOrder::updatedDescending:
        return left.updatedAge < right.updatedAge;
    case SearchOrder::updatedAscending:
        return left.updatedAge > right.updatedAge;
    case SearchOrder::createdDescending:
        return left.createdAge < right.createdAge;
    case SearchOrder::createdAscending:
        return left.createdAge > right.createdAge;
    }
    return false;
}

}  // namespace

SearchQuery parseSearchQuery(std::string_view text)
{
    SearchQuery query;
    while (true) {
        const std::size_t start = text.find_first_not_of(' ');
        if (start == std::string_view::npos) {
            return query;
        }
        const std::size_t end = std::min(text.find(' ', start), text.size());
        readTerm(query, text.substr(start, end - start));
        text.remove_prefix(end);
    }
}

std::vector<std::size_t> search(const Scenario& scenario, const SearchQuery& query)
{
    const auto repositories = searched(scenario, query);
    std::vector<std::size_t> matches;
    for (std::size_t index = 0; index < scenario.pullRequests.size(); ++index) {
        const PullRequest& pullRequest = scenario.pullRequests[index];
        if (repositories.contains(pullRequest.repository) && matchesContents(pullRequest, query)
            && matchesPerson(pullRequest, scenario.account, query)) {
            matches.push_back(index);
        }
    }
    std::ranges::stable_sort(matches, [&](std::size_t left, std::size_t right) {
        return isBefore(scenario.pullRequests[left], scenario.pullRequests[right], query.order);
    });
    return matches;
}

}  // namespace SampleGitHub

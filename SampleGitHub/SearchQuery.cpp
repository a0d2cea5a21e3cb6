#include "SampleGitHub/SearchQuery.h"

#include <algorithm>
#include <array>

namespace SampleGitHub {
namespace {

constexpr std::string_view repositoryPrefix = "repo:";
constexpr std::array<std::string_view, 8> knownTerms{
    "is:pr",
    "is:open",
    "archived:false",
    "author:@me",
    "-author:@me",
    "review-requested:@me",
    "reviewed-by:@me",
    "sort:updated-desc"};

[[noreturn]] void throwUnknown(std::string_view term)
{
    throw SearchError("The sample GitHub does not know the search term " + std::string(term) + ".");
}

void readTerm(SearchQuery& query, std::string_view term)
{
    if (term.starts_with(repositoryPrefix)) {
        query.repositories.emplace(term.substr(repositoryPrefix.size()));
    } else if (std::ranges::find(knownTerms, term) != knownTerms.end()) {
        query.terms.emplace(term);
    } else {
        throwUnknown(term);
    }
}

/// Parses `(repo:a OR repo:b)`, the only supported group, and returns the remaining text.
std::string_view readGroup(SearchQuery& query, std::string_view text)
{
    constexpr std::string_view joint = " OR ";
    const std::size_t end = text.find(')');
    std::string_view group = text.substr(0, end);
    if (end == std::string_view::npos) {
        throwUnknown(group);
    }
    group.remove_prefix(1);
    while (!group.empty()) {
        const std::size_t next = std::min(group.find(joint), group.size());
        const std::string_view term = group.substr(0, next);
        if (!term.starts_with(repositoryPrefix)
            || term.find_first_of(" (") != std::string_view::npos) {
            throwUnknown(text.substr(0, end + 1));
        }
        readTerm(query, term);
        group.remove_prefix(std::min(next + joint.size(), group.size()));
    }
    return text.substr(end + 1);
}

std::unordered_set<std::string_view> searched(const Scenario& scenario, const SearchQuery& query)
{
    std::unordered_set<std::string_view> names;
    for (const Repository& repository : scenario.repositories) {
        const bool isWanted =
            query.repositories.empty() || query.repositories.contains(repository.fullName);
        if (isWanted && !(repository.isArchived && query.terms.contains("archived:false"))) {
            names.insert(repository.fullName);
        }
    }
    return names;
}

bool isRequestedFrom(const PullRequest& pullRequest, const Account& account)
{
    const auto isOfUser = [&](const std::string& team) {
        return std::ranges::find(account.teams, team) != account.teams.end();
    };
    const auto& users = pullRequest.requestedUsers;
    return std::ranges::find(users, account.login) != users.end()
           || std::ranges::any_of(pullRequest.requestedTeams, isOfUser);
}

/// A review that was not submitted does not count.
bool isReviewedBy(const PullRequest& pullRequest, const Account& account)
{
    return std::ranges::any_of(pullRequest.reviews, [&](const Review& review) {
        return review.author == account.login && review.state != "PENDING";
    });
}

bool matches(const PullRequest& pullRequest, const Account& account, const SearchQuery& query)
{
    const auto fails = [&](std::string_view term, bool holds) {
        return query.terms.contains(term) && !holds;
    };
    return !fails("is:open", pullRequest.state == PullRequestKit::PullRequestState::open)
           && !fails("author:@me", pullRequest.author == account.login)
           && !fails("-author:@me", pullRequest.author != account.login)
           && !fails("review-requested:@me", isRequestedFrom(pullRequest, account))
           && !fails("reviewed-by:@me", isReviewedBy(pullRequest, account));
}

}  // namespace

SearchQuery parseSearchQuery(std::string_view text, SearchType type, RepositoryTerms terms)
{
    SearchQuery query;
    std::size_t repositoryTerms = 0;
    while (true) {
        const std::size_t start = text.find_first_not_of(' ');
        if (start == std::string_view::npos) {
            break;
        }
        text.remove_prefix(start);
        if (type == SearchType::issueAdvanced && text.starts_with('(')) {
            text = readGroup(query, text);
            ++repositoryTerms;
            continue;
        }
        const std::size_t end = std::min(text.find(' '), text.size());
        repositoryTerms += text.starts_with(repositoryPrefix) ? 1U : 0U;
        readTerm(query, text.substr(0, end));
        text.remove_prefix(end);
    }
    const bool meansAll = terms == RepositoryTerms::all || type == SearchType::issueAdvanced;
    query.isImpossible = meansAll && repositoryTerms > 1 && query.repositories.size() > 1;
    return query;
}

std::vector<std::size_t> search(const Scenario& scenario, const SearchQuery& query)
{
    std::vector<std::size_t> found;
    if (query.isImpossible) {
        return found;
    }
    const auto repositories = searched(scenario, query);
    const Account account = scenario.account.value_or(Account());
    for (std::size_t index = 0; index < scenario.pullRequests.size(); ++index) {
        const PullRequest& pullRequest = scenario.pullRequests[index];
        if (repositories.contains(pullRequest.repository) && matches(pullRequest, account, query)) {
            found.push_back(index);
        }
    }
    if (query.terms.contains("sort:updated-desc")) {
        std::ranges::stable_sort(
            found, {}, [&](std::size_t index) { return scenario.pullRequests[index].updatedAge; });
    }
    return found;
}

}  // namespace SampleGitHub

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
    } else if (name == "-author") {
        query.notAuthor = value;
    } else if (name == "reviewed-by") {
        query.reviewedBy = value;
    } else if (name == "review-requested") {
        query.reviewRequestedFrom = value;
    } else if (name == "sort") {
        query.order = readOrder(term, value);
    } else {
        throwUnknown(term);
    }
}

/// Reads `(repo:a OR repo:b)`, the one kind of group that the sample knows, and yields what stands
/// behind it.
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
        const std::size_t next = group.find(joint);
        const std::string_view term = group.substr(0, next);
        if (!term.starts_with("repo:") || term.find_first_of(" (") != std::string_view::npos) {
            throwUnknown(text.substr(0, end + 1));
        }
        readTerm(query, term);
        group.remove_prefix(std::min(next, group.size()));
        group.remove_prefix(std::min(joint.size(), group.size()));
    }
    return text.substr(end + 1);
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

/// A review that is begun and not submitted is none yet.
bool isReviewedBy(const PullRequest& pullRequest, const std::string& user)
{
    return std::ranges::any_of(pullRequest.reviews, [&](const Review& review) {
        return review.author == user && review.state != "PENDING";
    });
}

bool matchesPerson(
    const PullRequest& pullRequest, const std::optional<Account>& account, const SearchQuery& query)
{
    const auto login = [&](const std::string& user) {
        return user == "@me" && account ? account->login : user;
    };
    if ((query.author && pullRequest.author != login(*query.author))
        || (query.notAuthor && pullRequest.author == login(*query.notAuthor))
        || (query.reviewedBy && !isReviewedBy(pullRequest, login(*query.reviewedBy)))) {
        return false;
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
        repositoryTerms += text.starts_with("repo:") ? 1U : 0U;
        readTerm(query, text.substr(0, end));
        text.remove_prefix(end);
    }
    const bool meansAll = terms == RepositoryTerms::all || type == SearchType::issueAdvanced;
    query.isImpossible = meansAll && repositoryTerms > 1 && query.repositories.size() > 1;
    return query;
}

std::vector<std::size_t> search(const Scenario& scenario, const SearchQuery& query)
{
    const auto repositories = searched(scenario, query);
    std::vector<std::size_t> matches;
    if (query.isImpossible) {
        return matches;
    }
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

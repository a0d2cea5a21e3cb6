#include "SampleGitHub/Generation.h"

#include <algorithm>
#include <array>

namespace SampleGitHub {
namespace {

using PullRequestKit::PullRequestMergeability;

constexpr std::int64_t ownerCount = 12;
constexpr std::int64_t firstNumber = 1000;

constexpr std::array<const char*, 6> languages{"Go", "TypeScript", "Rust", "Python", "Java", "C++"};
constexpr std::array<const char*, 5> people{"ada", "grace", "linus-b", "margaret-h", "dennis"};
constexpr std::array<const char*, 4> verbs{"Move", "Tidy", "Speed up", "Document"};
constexpr std::array<const char*, 7> subjects{
    "the retry queue",
    "invoice rounding",
    "session expiry",
    "the search index",
    "metrics of the gateway",
    "feature flags",
    "the nightly export"};

template<typename List>
auto pick(const List& list, std::int64_t index)
{
    return list[static_cast<std::size_t>(index) % list.size()];
}

std::string padded(std::int64_t number)
{
    const std::string digits = std::to_string(number);
    return std::string(digits.size() < 4 ? 4 - digits.size() : 0, '0') + digits;
}

std::string repositoryName(std::int64_t index)
{
    return "team-" + std::to_string(index % ownerCount + 1) + "/service-" + padded(index + 1);
}

Repository makeRepository(std::int64_t index, std::int64_t busyRepositories)
{
    Repository repository;
    repository.fullName = repositoryName(index);
    repository.description = "Service number " + std::to_string(index + 1);
    repository.visibility = index % 3 == 0 ? "private" : "public";
    repository.language = pick(languages, index);
    repository.isArchived = index >= busyRepositories && index % 10 == 9;
    repository.branches = {{"main", index % 4, {}}};
    return repository;
}

Check makeCheck(std::int64_t pullRequest, std::int64_t index)
{
    Check check;
    check.name = "test suite / shard " + std::to_string(index + 1) + " of many, linux, x86-64";
    check.state = pullRequest % 5 == 1 && index == 7 ? "FAILURE" : "SUCCESS";
    check.workflow = "continuous-integration.yml";
    check.run = 7'000'000'000 + pullRequest;
    check.ageInSeconds = std::chrono::minutes(30 + pullRequest);
    return check;
}

void addReviews(PullRequest& pullRequest, std::int64_t index, const Scenario& scenario)
{
    constexpr std::array<const char*, 4> states{
        "APPROVED", "COMMENTED", "CHANGES_REQUESTED", "APPROVED"};
    for (std::int64_t review = 0; review < index % 4; ++review) {
        pullRequest.reviews.push_back({pick(states, index + review), pick(people, review)});
    }
    if (scenario.account && index % 2 == 0) {
        pullRequest.requestedUsers.push_back(scenario.account->login);
    }
}

PullRequest makePullRequest(std::int64_t index, const Scenario& scenario)
{
    const std::int64_t busy = std::max<std::int64_t>(1, scenario.generated.busyRepositories);
    const std::int64_t place = index / busy;  // Within the repository.
    PullRequest pullRequest;
    pullRequest.repository = repositoryName(index % busy);
    pullRequest.number = firstNumber + index;
    pullRequest.title = std::string(pick(verbs, index)) + " " + pick(subjects, index) + ", step "
                        + std::to_string(place + 1);
    pullRequest.author = pick(people, index);
    pullRequest.updatedAge = std::chrono::minutes(5 + index * 7);
    pullRequest.createdAge = pullRequest.updatedAge + std::chrono::days(1 + index % 30);
    pullRequest.isDraft = index % 9 == 4;
    pullRequest.mergeability =
        index % 11 == 3 ? PullRequestMergeability::conflicting : PullRequestMergeability::mergeable;
    pullRequest.head = "step-" + std::to_string(place + 1);
    // Stacks of three: the first targets main, the others their predecessor.
    pullRequest.base = place % 3 == 0 ? "main" : "step-" + std::to_string(place);
    addReviews(pullRequest, index, scenario);
    for (std::int64_t check = 0; check < scenario.generated.checks; ++check) {
        pullRequest.checks.push_back(makeCheck(index, check));
    }
    return pullRequest;
}

}  // namespace

void generate(Scenario& scenario)
{
    for (std::int64_t index = 0; index < scenario.generated.repositories; ++index) {
        scenario.repositories.push_back(makeRepository(index, scenario.generated.busyRepositories));
    }
    for (std::int64_t index = 0; index < scenario.generated.pullRequests; ++index) {
        scenario.pullRequests.push_back(makePullRequest(index, scenario));
    }
}

}  // namespace SampleGitHub

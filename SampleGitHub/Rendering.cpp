#include "SampleGitHub/Rendering.h"

#include "SampleGitHub/Base64.h"

#include <algorithm>
#include <boost/json.hpp>
#include <string_view>

namespace SampleGitHub {
namespace {

using PullRequestKit::Date;
using PullRequestKit::formatDate;
using PullRequestKit::PullRequestMergeability;
using PullRequestKit::PullRequestState;

namespace json = boost::json;

constexpr std::size_t reviewLimit = 50;  // The search document's limit.
constexpr std::size_t checkLimit = 100;

json::value member(std::string_view key, json::value value)
{
    json::object object;
    object.emplace(key, std::move(value));
    return object;
}

json::value named(std::string_view key, const std::optional<std::string>& text)
{
    return text ? member(key, json::value(*text)) : json::value(nullptr);
}

json::value nodes(json::array list)
{
    return member("nodes", std::move(list));
}

std::string_view stateText(PullRequestState state)
{
    switch (state) {
    case PullRequestState::open:
        return "OPEN";
    case PullRequestState::closed:
        return "CLOSED";
    case PullRequestState::merged:
        return "MERGED";
    }
    return {};
}

std::string_view mergeableText(PullRequestMergeability mergeability)
{
    switch (mergeability) {
    case PullRequestMergeability::mergeable:
        return "MERGEABLE";
    case PullRequestMergeability::conflicting:
        return "CONFLICTING";
    case PullRequestMergeability::unknown:
        return "UNKNOWN";
    }
    return {};
}

json::value requests(const PullRequest& pullRequest)
{
    json::array list;
    for (const std::string& user : pullRequest.requestedUsers) {
        list.push_back(member("requestedReviewer", member("login", json::value(user))));
    }
    for (const std::string& team : pullRequest.requestedTeams) {
        list.push_back(member("requestedReviewer", member("name", json::value(team))));
    }
    list.resize(std::min(list.size(), reviewLimit));
    return nodes(std::move(list));
}

json::value reviews(const PullRequest& pullRequest)
{
    json::array list;
    for (const Review& review : pullRequest.reviews) {
        list.push_back({{"state", review.state}, {"author", named("login", review.author)}});
    }
    list.resize(std::min(list.size(), reviewLimit));
    return nodes(std::move(list));
}

json::value checkSuite(const Check& check)
{
    json::value workflowRun = nullptr;
    if (!check.workflow.empty()) {
        workflowRun = {
            {"databaseId", check.run},
            {"runAttempt", check.attempt},
            {"file", named("path", ".github/workflows/" + check.workflow)}};
    }
    return {
        {"app", named("id", "A_" + encodeBase64("app:" + check.app))},
        {"workflowRun", std::move(workflowRun)}};
}

json::value checkRun(const Check& check, std::int64_t databaseId, Date now)
{
    constexpr std::chrono::seconds duration{90};
    const Date started = now - check.ageInSeconds;
    const bool isRunning = check.state.empty();
    return {
        {"__typename", "CheckRun"},
        {"name", check.name.value_or("")},
        {"status", isRunning ? "IN_PROGRESS" : "COMPLETED"},
        {"conclusion", isRunning ? json::value(nullptr) : json::value(check.state)},
        {"databaseId", check.databaseId != 0 ? check.databaseId : databaseId},
        {"startedAt", formatDate(started)},
        {"completedAt",
         isRunning ? json::value(nullptr) : json::value(formatDate(started + duration))},
        {"checkSuite", checkSuite(check)}};
}

json::value commitStatus(const Check& check, Date now)
{
    return {
        {"__typename", "StatusContext"},
        {"context", check.context.value_or("")},
        {"state", check.state},
        {"createdAt", formatDate(now - check.ageInSeconds)}};
}

json::value commits(const PullRequest& pullRequest, Date now)
{
    json::value rollup = nullptr;
    if (!pullRequest.checks.empty()) {
        // Increases from check to check and is unique among pull requests.
        std::int64_t databaseId = 20'000'000'000 + pullRequest.number * 1000;
        json::array list;
        list.reserve(std::min(pullRequest.checks.size(), checkLimit));
        for (const Check& check : pullRequest.checks) {
            if (list.size() < checkLimit) {
                list.push_back(
                    check.name ? checkRun(check, ++databaseId, now) : commitStatus(check, now));
            }
        }
        rollup = member("contexts", nodes(std::move(list)));
    }
    json::array list;
    list.push_back(member("commit", member("statusCheckRollup", std::move(rollup))));
    return nodes(std::move(list));
}

json::value headRepository(const PullRequest& pullRequest)
{
    if (pullRequest.isForkDeleted) {
        return nullptr;
    }
    return named("nameWithOwner", pullRequest.fork.value_or(pullRequest.repository));
}

json::value baseRef(const PullRequest& pullRequest)
{
    if (pullRequest.isBaseDeleted) {
        return nullptr;
    }
    return named("id", refId(pullRequest.repository, pullRequest.base));
}

void addAddress(json::object& object, const std::string& address, const std::string& name)
{
    object.emplace(name + "_url", address + "/" + name + "{/more}");
}

/// Adds as much text as the URLs in GitHub's repositories, which no client uses.
void addAddresses(json::object& object, const std::string& address)
{
    constexpr int count = 50;
    for (int number = 1; number <= count; ++number) {
        addAddress(object, address, "address_" + std::to_string(number));
    }
}

}  // namespace

std::string refId(const std::string& repository, const std::string& branch)
{
    return "REF_" + encodeBase64(repository + ":refs/heads/" + branch);
}

std::string renderSearchNode(const PullRequest& pullRequest, Date now)
{
    const std::string number = std::to_string(pullRequest.number);
    const json::value repository = named("nameWithOwner", pullRequest.repository);
    const json::object node{
        {"number", pullRequest.number},
        {"title", pullRequest.title},
        {"url", "https://github.com/" + pullRequest.repository + "/pull/" + number},
        {"createdAt", formatDate(now - pullRequest.createdAge)},
        {"updatedAt", formatDate(now - pullRequest.updatedAge)},
        {"state", stateText(pullRequest.state)},
        {"isDraft", pullRequest.isDraft},
        {"mergeable", mergeableText(pullRequest.mergeability)},
        {"baseRefName", pullRequest.base},
        {"headRefName", pullRequest.head},
        {"author", named("login", pullRequest.author)},
        {"repository", repository},
        {"baseRepository", repository},
        {"headRepository", headRepository(pullRequest)},
        {"baseRef", baseRef(pullRequest)},
        {"reviewRequests", requests(pullRequest)},
        {"latestReviews", reviews(pullRequest)},
        {"commits", commits(pullRequest, now)}};
    return json::serialize(node);
}

std::string renderRefNode(const std::string& id, const BranchRules& rules)
{
    json::array list;
    list.push_back({{"type", "DELETION"}, {"parameters", nullptr}});
    for (const std::int64_t count : rules.rulesets) {
        list.push_back(
            {{"type", "PULL_REQUEST"},
             {"parameters", member("requiredApprovingReviewCount", count)}});
    }
    list.push_back({{"type", "REQUIRED_STATUS_CHECKS"}, {"parameters", json::object()}});
    json::value protection = nullptr;
    if (rules.protection) {
        protection = member("requiredApprovingReviewCount", *rules.protection);
    }
    if (rules.rulesets.empty()) {
        list.clear();
    }
    return json::serialize(json::object{
        {"id", id}, {"refUpdateRule", std::move(protection)}, {"rules", nodes(std::move(list))}});
}

std::string renderRepository(const Repository& repository, std::int64_t id, Date now)
{
    json::object object{
        {"id", id},
        {"full_name", repository.fullName},
        {"description", repository.description},
        {"pushed_at", formatDate(now - std::chrono::hours(4))},
        {"language", repository.language ? json::value(*repository.language) : json::value()},
        {"archived", repository.isArchived},
        {"visibility", repository.visibility},
        {"default_branch", repository.defaultBranch}};
    addAddresses(object, "https://api.github.com/repos/" + repository.fullName);
    return json::serialize(object);
}

}  // namespace SampleGitHub

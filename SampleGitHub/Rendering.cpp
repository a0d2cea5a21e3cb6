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

constexpr std::size_t reviewLimit = 50;  // What the search document asks for at most.
constexpr std::size_t checkLimit = 100;

/// An object with one member.
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
        // Later check runs have larger numbers, and no two pull requests share one.
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

/// The addresses that GitHub puts into every repository; they make up most of its text.
void addAddresses(json::object& object, const std::string& address)
{
    for (const std::string_view name :
         {"forks",
          "keys{/key_id}",
          "collaborators{/collaborator}",
          "teams",
          "hooks",
          "issues/events{/number}",
          "events",
          "assignees{/user}",
          "branches{/branch}",
          "tags",
          "git/blobs{/sha}",
          "git/tags{/sha}",
          "git/refs{/sha}",
          "git/trees{/sha}",
          "statuses/{sha}",
          "languages",
          "stargazers",
          "contributors",
          "subscribers",
          "subscription",
          "commits{/sha}",
          "git/commits{/sha}",
          "comments{/number}",
          "issues/comments{/number}",
          "contents/{+path}",
          "compare/{base}...{head}",
          "merges",
          "{archive_format}{/ref}",
          "downloads",
          "issues{/number}",
          "pulls{/number}",
          "milestones{/number}",
          "notifications{?since,all,participating}",
          "labels{/name}",
          "releases{/id}",
          "deployments"}) {
        std::string key(name.substr(0, name.find('{', 1)));
        std::ranges::replace(key, '/', '_');
        object.emplace(key + "_url", address + "/" + std::string(name));
    }
}

json::value ownerOf(const std::string& login, const Repository& repository)
{
    const std::string address = "https://api.github.com/users/" + login;
    return {
        {"login", login},
        {"url", address},
        {"html_url", "https://github.com/" + login},
        {"repos_url", address + "/repos"},
        {"events_url", address + "/events{/privacy}"},
        {"type", repository.affiliation == "organization_member" ? "Organization" : "User"},
        {"site_admin", false}};
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
    const std::string owner = repository.fullName.substr(0, repository.fullName.find('/'));
    const std::string address = "https://api.github.com/repos/" + repository.fullName;
    const std::string page = "https://github.com/" + repository.fullName;
    json::object object{
        {"id", id},
        {"node_id", "R_" + encodeBase64("repository:" + std::to_string(id))},
        {"name", repository.fullName.substr(owner.size() + 1)},
        {"full_name", repository.fullName},
        {"private", repository.visibility != "public"},
        {"owner", ownerOf(owner, repository)},
        {"html_url", page},
        {"description", repository.description},
        {"fork", false},
        {"url", address}};
    addAddresses(object, address);
    object.emplace("created_at", formatDate(now - std::chrono::years(2)));
    object.emplace("updated_at", formatDate(now - std::chrono::hours(5)));
    object.emplace("pushed_at", formatDate(now - std::chrono::hours(4)));
    object.emplace("git_url", "git://github.com/" + repository.fullName + ".git");
    object.emplace("clone_url", page + ".git");
    object.emplace("size", 1024);
    object.emplace(
        "language", repository.language ? json::value(*repository.language) : json::value(nullptr));
    object.emplace("archived", repository.isArchived);
    object.emplace("disabled", false);
    object.emplace("visibility", repository.visibility);
    object.emplace("default_branch", repository.defaultBranch);
    object.emplace(
        "permissions",
        json::object{{"admin", repository.affiliation == "owner"}, {"push", true}, {"pull", true}});
    return json::serialize(object);
}

}  // namespace SampleGitHub

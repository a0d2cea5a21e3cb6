#include "SampleGitHub/FactsRendering.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace SampleGitHub {
namespace {

namespace json = boost::json;
using PullRequestKit::Date;

constexpr std::int64_t threadLimit = 100;  // The facts document's limit.

std::string madeUpCommit(std::string_view text)
{
    constexpr std::size_t length = 40;
    constexpr std::string_view digits = "0123456789abcdef";
    std::uint64_t hash = 0xCBF29CE484222325U;
    std::string commit;
    while (commit.size() < length) {
        for (const char character : text) {
            hash = (hash ^ static_cast<unsigned char>(character)) * 0x100000001B3U;
        }
        commit += digits[(hash >> 32U) % digits.size()];
    }
    return commit;
}

std::int64_t most(const std::vector<std::int64_t>& counts)
{
    return counts.empty() ? 0 : std::ranges::max(counts);
}

std::int64_t requiredApprovals(const PullRequest& pullRequest, const Scenario& scenario)
{
    std::int64_t required = 0;
    for (const Repository& repository : scenario.repositories) {
        if (repository.fullName != pullRequest.repository || pullRequest.isBaseDeleted) {
            continue;
        }
        for (const BranchRules& rules : repository.branches) {
            if (rules.name == pullRequest.base) {
                required = std::max({required, rules.protection.value_or(0), most(rules.rulesets)});
            }
        }
    }
    return required;
}

json::value ownReview(const PullRequest& pullRequest, const Scenario& scenario, Date now)
{
    if (!scenario.account) {
        return nullptr;
    }
    const auto& reviews = pullRequest.reviews;
    const auto found = std::find_if(reviews.rbegin(), reviews.rend(), [&](const Review& review) {
        return review.author == scenario.account->login;
    });
    if (found == reviews.rend()) {
        return nullptr;
    }
    json::value commit = nullptr;
    if (found->commit == "head") {
        commit = json::object{{"oid", headCommit(pullRequest)}};
    } else if (found->commit == "older") {
        commit = json::object{{"oid", madeUpCommit("before " + headCommit(pullRequest))}};
    }
    const bool isPending = found->state == "PENDING";
    return json::object{
        {"state", found->state},
        {"submittedAt",
         isPending ? json::value(nullptr)
                   : json::value(PullRequestKit::formatDate(now - found->ageInSeconds))},
        {"commit", std::move(commit)}};
}

json::value threads(const PullRequest& pullRequest)
{
    json::array nodes;
    for (std::int64_t thread = 0; thread < std::min(pullRequest.threads, threadLimit); ++thread) {
        nodes.push_back(json::object{{"isResolved", thread >= pullRequest.openThreads}});
    }
    return json::object{{"totalCount", pullRequest.threads}, {"nodes", std::move(nodes)}};
}

json::value object(const char* key, const std::optional<std::int64_t>& value)
{
    return value ? json::value(json::object{{key, *value}}) : json::value(nullptr);
}

json::value stack(const PullRequest& pullRequest)
{
    if (!pullRequest.stack) {
        return nullptr;
    }
    return json::object{{"number", pullRequest.stack->number}, {"size", pullRequest.stack->size}};
}

json::value autoMerge(const PullRequest& pullRequest, Date now)
{
    if (!pullRequest.isAutoMerge) {
        return nullptr;
    }
    return json::object{{"enabledAt", PullRequestKit::formatDate(now - pullRequest.updatedAge)}};
}

json::object everyField(const PullRequest& pullRequest, const Scenario& scenario, Date now)
{
    const auto decision = reviewDecision(pullRequest, scenario);
    const auto position =
        pullRequest.stack ? std::optional(pullRequest.stack->position) : std::nullopt;
    return {
        {"headRefOid", headCommit(pullRequest)},
        {"reviewDecision", decision ? json::value(*decision) : json::value()},
        {"isInMergeQueue", pullRequest.mergeQueuePosition.has_value()},
        {"mergeQueueEntry", object("position", pullRequest.mergeQueuePosition)},
        {"autoMergeRequest", autoMerge(pullRequest, now)},
        {"viewerLatestReview", ownReview(pullRequest, scenario, now)},
        {"reviewThreads", threads(pullRequest)},
        {"stackEntry", object("position", position)},
        {"stack", stack(pullRequest)}};
}

}  // namespace

std::string headCommit(const PullRequest& pullRequest)
{
    return pullRequest.headCommit.value_or(madeUpCommit(
        pullRequest.repository + "#" + std::to_string(pullRequest.number) + pullRequest.head));
}

std::optional<std::string> reviewDecision(const PullRequest& pullRequest, const Scenario& scenario)
{
    if (pullRequest.reviewDecision) {
        return pullRequest.reviewDecision;
    }
    const std::int64_t required = requiredApprovals(pullRequest, scenario);
    if (required == 0) {
        return std::nullopt;
    }
    const auto count = [&](std::string_view state) {
        return std::ranges::count(pullRequest.reviews, state, &Review::state);
    };
    if (count("CHANGES_REQUESTED") > 0) {
        return "CHANGES_REQUESTED";
    }
    return count("APPROVED") >= required ? "APPROVED" : "REVIEW_REQUIRED";
}

json::object renderFacts(
    const PullRequest& pullRequest,
    const Scenario& scenario,
    const std::vector<std::string>& fields,
    Date now)
{
    json::object all = everyField(pullRequest, scenario, now);
    json::object facts;
    for (const std::string& field : fields) {
        facts.emplace(field, std::move(all.at(field)));
    }
    return facts;
}

}  // namespace SampleGitHub

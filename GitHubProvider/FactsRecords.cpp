#include "GitHubProvider/FactsRecords.h"

#include "GitHubProvider/ReviewStates.h"

#include <algorithm>
#include <boost/json.hpp>
#include <string>

namespace GitHub {

namespace json = boost::json;

using PullRequestKit::OwnReview;
using PullRequestKit::PullRequestFacts;
using PullRequestKit::ReviewDecision;

namespace Lenient {

const json::object* object(const json::object& parent, std::string_view key)
{
    const json::value* const member = parent.if_contains(key);
    return member != nullptr ? member->if_object() : nullptr;
}

const json::array* list(const json::object& parent, std::string_view key)
{
    const json::value* const member = parent.if_contains(key);
    return member != nullptr ? member->if_array() : nullptr;
}

std::optional<std::string_view> text(const json::object& parent, std::string_view key)
{
    const json::value* const member = parent.if_contains(key);
    const json::string* const text = member != nullptr ? member->if_string() : nullptr;
    return text != nullptr ? std::optional<std::string_view>(*text) : std::nullopt;
}

std::optional<bool> flag(const json::object& parent, std::string_view key)
{
    const json::value* const member = parent.if_contains(key);
    const bool* const flag = member != nullptr ? member->if_bool() : nullptr;
    return flag != nullptr ? std::optional(*flag) : std::nullopt;
}

std::optional<std::int64_t> number(
    const json::object& parent, std::string_view key, std::int64_t least)
{
    const json::value* const member = parent.if_contains(key);
    const std::int64_t* const number = member != nullptr ? member->if_int64() : nullptr;
    return number != nullptr && *number >= least ? std::optional(*number) : std::nullopt;
}

}  // namespace Lenient

namespace {

/// False when the decision is missing, as opposed to null.
bool readDecision(PullRequestFacts& facts, const json::object& pullRequest)
{
    const json::value* const member = pullRequest.if_contains("reviewDecision");
    if (member == nullptr || !(member->is_null() || member->is_string())) {
        return false;
    }
    const auto text = Lenient::text(pullRequest, "reviewDecision");
    if (text == "APPROVED") {
        facts.reviewDecision = ReviewDecision::approved;
    } else if (text == "CHANGES_REQUESTED") {
        facts.reviewDecision = ReviewDecision::changesRequested;
    } else if (text == "REVIEW_REQUIRED") {
        facts.reviewDecision = ReviewDecision::reviewRequired;
    } else {
        return !text;
    }
    return true;
}

bool readThreads(PullRequestFacts& facts, const json::object& pullRequest)
{
    const json::object* const threads = Lenient::object(pullRequest, "reviewThreads");
    const auto count =
        threads != nullptr ? Lenient::number(*threads, "totalCount", 0) : std::nullopt;
    const json::array* const nodes = count ? Lenient::list(*threads, "nodes") : nullptr;
    if (!count || nodes == nullptr) {
        return false;
    }
    for (const json::value& node : *nodes) {
        const json::object* const thread = node.if_object();
        const auto isResolved =
            thread != nullptr ? Lenient::flag(*thread, "isResolved") : std::nullopt;
        if (!isResolved) {
            return false;
        }
        facts.openThreadCount += *isResolved ? 0 : 1;
    }
    facts.threadCount = std::max(*count, static_cast<std::int64_t>(nodes->size()));
    return true;
}

/// Nothing without a readable commit: the review would count as one of an older head.
std::optional<OwnReview> ownReview(const json::object& review)
{
    const auto verdict = reviewVerdict(Lenient::text(review, "state").value_or(""));
    const json::value* const commit = review.if_contains("commit");
    if (!verdict || commit == nullptr) {
        return std::nullopt;
    }
    OwnReview own;
    own.verdict = *verdict;
    own.submittedAt = PullRequestKit::parseDate(Lenient::text(review, "submittedAt").value_or(""));
    if (!commit->is_null()) {
        const json::object* const known = commit->if_object();
        const auto hash = known != nullptr ? Lenient::text(*known, "oid") : std::nullopt;
        if (!hash) {
            return std::nullopt;
        }
        own.commit = std::string(*hash);
    }
    return own;
}

void readQueue(PullRequestFacts& facts, const json::object& pullRequest)
{
    const json::object* const entry = Lenient::object(pullRequest, "mergeQueueEntry");
    facts.isInMergeQueue = Lenient::flag(pullRequest, "isInMergeQueue").value_or(entry != nullptr);
    if (facts.isInMergeQueue && entry != nullptr) {
        facts.mergeQueuePosition = Lenient::number(*entry, "position", 1);
    }
    facts.isAutoMergeEnabled = Lenient::object(pullRequest, "autoMergeRequest") != nullptr;
}

void readStack(PullRequestFacts& facts, const json::object& pullRequest)
{
    const json::object* const entry = Lenient::object(pullRequest, "stackEntry");
    const json::object* const stack = Lenient::object(pullRequest, "stack");
    if (entry == nullptr || stack == nullptr) {
        return;
    }
    const auto position = Lenient::number(*entry, "position", 1);
    const auto number = Lenient::number(*stack, "number", 1);
    const auto size = Lenient::number(*stack, "size", 1);
    if (position && number && size) {
        facts.stackPlace = {*number, *position, *size};
    }
}

}  // namespace

std::optional<PullRequestFacts> factsOf(const json::object& pullRequest)
{
    PullRequestFacts facts;
    facts.headCommit = std::string(Lenient::text(pullRequest, "headRefOid").value_or(""));
    if (facts.headCommit.empty() || !readDecision(facts, pullRequest)
        || !readThreads(facts, pullRequest)) {
        return std::nullopt;
    }
    readQueue(facts, pullRequest);
    if (const json::object* const review = Lenient::object(pullRequest, "viewerLatestReview")) {
        facts.ownReview = ownReview(*review);
    }
    readStack(facts, pullRequest);
    return facts;
}

std::optional<PullRequestKit::Quota> quotaOf(const json::object& rateLimit)
{
    const auto limit = Lenient::number(rateLimit, "limit", 1);
    const auto remaining = Lenient::number(rateLimit, "remaining", 0);
    const auto resetAt =
        PullRequestKit::parseDate(Lenient::text(rateLimit, "resetAt").value_or(""));
    if (!limit || !remaining || !resetAt) {
        return std::nullopt;
    }
    return PullRequestKit::Quota{*limit, *remaining, *resetAt};
}

}  // namespace GitHub

#include "GitHubProvider/PullRequestMapping.h"

#include "GitHubProvider/ReviewStates.h"
#include "GitHubProvider/SearchQuery.h"

#include <algorithm>
#include <set>
#include <string_view>
#include <utility>

namespace GitHub {
namespace {

using PullRequestKit::ProgressCount;
using PullRequestKit::PullRequestDetails;
using PullRequestKit::PullRequestMergeability;
using PullRequestKit::PullRequestState;
using PullRequestKit::ReviewActivity;
using PullRequestKit::ReviewState;
using PullRequestKit::SharedText;
using PullRequestKit::SharedTexts;

/// GitHub's name for a deleted account.
constexpr const char* ghost = "ghost";

using Names = std::set<std::string_view>;

bool isComplete(const Node& node)
{
    return node.number && node.title && node.url && node.updatedAt && node.repository
           && node.baseRefName && node.headRefName;
}

template<typename Element>
std::span<const Element> elements(const std::optional<NodeList<Element>>& list)
{
    return list ? std::span<const Element>(list->nodes) : std::span<const Element>();
}

Names requestedReviewers(const Node& node)
{
    Names names;
    for (const ReviewRequest& request : elements(node.reviewRequests)) {
        if (!request.requestedReviewer) {
            continue;
        }
        const Actor& reviewer = *request.requestedReviewer;
        if (const auto& name = reviewer.login ? reviewer.login : reviewer.name) {
            names.insert(*name);
        }
    }
    return names;
}

bool isSubmitted(const Review& review)
{
    return review.state == approvedText || review.state == changesRequestedText
           || review.state == commentedText;
}

ProgressCount countReviews(std::span<const Review> reviews, const Names& requested)
{
    Names reviewers = requested;
    Names completed;
    for (const Review& review : reviews) {
        if (!review.author || !review.author->login) {
            continue;
        }
        reviewers.insert(*review.author->login);
        if (isSubmitted(review)) {
            completed.insert(*review.author->login);
        }
    }
    return {
        .completed = static_cast<std::int64_t>(completed.size()),
        .total = static_cast<std::int64_t>(reviewers.size())};
}

ReviewActivity activity(std::span<const Review> reviews)
{
    const auto hasAny = [&](std::string_view state) {
        return std::ranges::find(reviews, state, &Review::state) != reviews.end();
    };
    return {
        .hasApproval = hasAny(approvedText),
        .hasChangesRequested = hasAny(changesRequestedText),
        .hasCommentedReview = hasAny(commentedText),
        .hasSubmittedReview = std::ranges::any_of(reviews, isSubmitted)};
}

ReviewState reviewState(
    std::span<const Review> reviews, const ReviewActivity& activity, bool isReviewRequested)
{
    if (activity.hasChangesRequested) {
        return ReviewState::changesRequested;
    }
    if (reviews.empty() && !isReviewRequested) {
        return ReviewState::none;
    }
    const auto isApproval = [](const Review& review) { return review.state == approvedText; };
    if (!reviews.empty() && std::ranges::all_of(reviews, isApproval)) {
        return ReviewState::approved;
    }
    return activity.hasCommentedReview ? ReviewState::commented : ReviewState::pending;
}

std::span<const CheckContext> checkContexts(const Node& node)
{
    const auto commits = elements(node.commits);
    if (commits.empty()) {
        return {};
    }
    const auto& rollup = commits.back().commit.statusCheckRollup;
    return rollup ? std::span(rollup->contexts.nodes) : std::span<const CheckContext>();
}

PullRequestState state(const Node& node)
{
    if (node.state == "MERGED") {
        return PullRequestState::merged;
    }
    return node.state == "CLOSED" ? PullRequestState::closed : PullRequestState::open;
}

PullRequestMergeability mergeability(const Node& node)
{
    if (node.mergeable == "MERGEABLE") {
        return PullRequestMergeability::mergeable;
    }
    return node.mergeable == "CONFLICTING" ? PullRequestMergeability::conflicting
                                           : PullRequestMergeability::unknown;
}

std::string loginOrGhost(const std::optional<Actor>& actor)
{
    return actor && actor->login ? *actor->login : ghost;
}

/// Set when a list has reached the search's limit.
std::optional<std::int64_t> limitReached(std::size_t length, std::size_t limit)
{
    return length >= limit ? std::optional(static_cast<std::int64_t>(limit)) : std::nullopt;
}

void addOnce(std::vector<std::string>& names, const std::string& name)
{
    if (std::ranges::find(names, name) == names.end()) {
        names.push_back(name);
    }
}

void addRequests(PullRequestDetails& details, std::span<const ReviewRequest> requests)
{
    for (const ReviewRequest& request : requests) {
        if (!request.requestedReviewer) {
            continue;
        }
        const Actor& reviewer = *request.requestedReviewer;
        if (reviewer.login) {
            addOnce(details.requestedUsers, *reviewer.login);
        } else if (reviewer.name) {
            addOnce(details.requestedTeams, *reviewer.name);
        }
    }
    details.requestLimit = limitReached(requests.size(), SearchLimits::reviewRequests);
}

void addReviews(PullRequestDetails& details, std::span<const Review> reviews)
{
    details.reviews.reserve(reviews.size());
    for (const Review& review : reviews) {
        if (const auto known = reviewVerdict(review.state)) {
            details.reviews.push_back({loginOrGhost(review.author), *known});
        }
    }
    details.reviewLimit = limitReached(reviews.size(), SearchLimits::reviews);
}

std::vector<SharedText> shared(const std::vector<std::string_view>& names, SharedTexts& texts)
{
    std::vector<SharedText> shared;
    shared.reserve(names.size());
    for (const std::string_view name : names) {
        shared.push_back(texts.share(name));
    }
    return shared;
}

PullRequestDetails makeDetails(const Node& node, const CheckSummary& checks, SharedTexts& texts)
{
    PullRequestDetails details;
    addRequests(details, elements(node.reviewRequests));
    addReviews(details, elements(node.latestReviews));
    details.passedChecks = shared(checks.passed, texts);
    details.failedChecks = shared(checks.failed, texts);
    details.runningChecks = shared(checks.running, texts);
    details.checkLimit = limitReached(checkContexts(node).size(), SearchLimits::checks);
    return details;
}

}  // namespace

std::optional<MappedPullRequest> mapPullRequest(
    Node node,
    const std::string& host,
    std::optional<std::int64_t> requiredReviews,
    SharedTexts& texts)
{
    if (!isComplete(node)) {
        return std::nullopt;
    }
    // NOLINTBEGIN(bugprone-unchecked-optional-access): a complete node has them.
    const auto reviews = elements(node.latestReviews);
    const Names requested = requestedReviewers(node);
    const std::string& repository = node.repository->nameWithOwner;
    const CheckSummary checks = summarizeChecks(checkContexts(node));
    PullRequestDetails details = makeDetails(node, checks, texts);

    PullRequestKit::PullRequest made;
    made.reviewActivity = activity(reviews);
    made.reviewState = reviewState(reviews, made.reviewActivity, !requested.empty());
    made.reviews = countReviews(reviews, requested);
    made.requiredApprovingReviewCount = requiredReviews;
    made.checks = checks.count;
    made.id = {std::string(providerID), host, repository, *node.number};
    made.title = *std::move(node.title);
    made.url = *std::move(node.url);
    made.author = loginOrGhost(node.author);
    made.createdAt = node.createdAt;
    made.updatedAt = *node.updatedAt;
    made.state = state(node);
    made.isDraft = node.isDraft.value_or(false);
    made.mergeability = mergeability(node);
    made.head = {
        node.headRepository.value_or(*node.repository).nameWithOwner, *std::move(node.headRefName)};
    made.base = {
        node.baseRepository.value_or(*node.repository).nameWithOwner, *std::move(node.baseRefName)};
    // NOLINTEND(bugprone-unchecked-optional-access)
    return MappedPullRequest{std::move(made), std::move(details)};
}

std::optional<PullRequestKit::PullRequest> makePullRequest(
    Node node, const std::string& host, std::optional<std::int64_t> requiredReviews)
{
    SharedTexts texts;
    auto mapped = mapPullRequest(std::move(node), host, requiredReviews, texts);
    return mapped ? std::optional(std::move(mapped->pullRequest)) : std::nullopt;
}

}  // namespace GitHub

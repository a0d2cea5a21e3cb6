#include "PullRequestKit/TurnRules.h"

#include <algorithm>
#include <span>
#include <string>
#include <utility>

namespace PullRequestKit {
namespace {

/// Facts cover at most this many threads.
constexpr std::int64_t largestThreadCount = 100;

constexpr char lowered(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

bool containsLogin(const std::vector<std::string>& logins, std::string_view login)
{
    return std::ranges::any_of(
        logins, [&](const std::string& candidate) { return isSameLogin(candidate, login); });
}

void addNames(std::vector<std::string>& names, const std::vector<std::string>& more)
{
    std::ranges::copy_if(
        more, std::back_inserter(names), [](const std::string& name) { return !name.empty(); });
}

bool isRequestForChanges(const LatestReview& review)
{
    return review.verdict == ReviewVerdict::changesRequested;
}

class Judgement {
public:
    Judgement(
        const PullRequest& pullRequest,
        const PullRequestDetails* details,
        const PullRequestFacts* facts,
        std::string_view login,
        std::optional<std::int64_t> basedOn)
        : _pullRequest(pullRequest)
        , _details(details)
        , _facts(facts)
        , _login(login)
        , _basedOn(basedOn)
    {}

    Turn turn() const
    {
        if (_login.empty()) {
            return {};
        }
        auto found = isSameLogin(_pullRequest.author, _login) ? ofOwn() : ofSomebodyElses();
        return found ? *std::move(found) : ofOthers();
    }

private:
    using Found = std::optional<Turn>;

    bool isOwn() const { return isSameLogin(_pullRequest.author, _login); }

    Found ofOwn() const;
    Found toFix() const;
    Found ofSomebodyElses() const;
    Turn ofOthers() const;

    std::vector<std::string> standingRequestsForChanges() const;
    std::int64_t requiredApprovals() const;
    bool lacksReviewers() const;
    bool hasReviewed() const;
    bool hasMovedSinceOwnReview() const;
    bool isReady() const;
    bool hasRequestForChanges() const;
    bool hasApprovals() const;

    const PullRequest& _pullRequest;
    const PullRequestDetails* _details;
    const PullRequestFacts* _facts;
    std::string_view _login;
    std::optional<std::int64_t> _basedOn;
};

std::optional<Turn> Judgement::ofOwn() const
{
    if (_pullRequest.isDraft) {
        return Turn{Whose::others, TurnReason::draft};
    }
    if (auto found = toFix()) {
        return found;
    }
    if (_basedOn) {
        return Turn{Whose::others, TurnReason::waitingForPullRequest, {}, *_basedOn};
    }
    if (_facts != nullptr && _facts->isInMergeQueue) {
        return Turn{
            Whose::others, TurnReason::mergeQueue, {}, _facts->mergeQueuePosition.value_or(0)};
    }
    if (_facts != nullptr && _facts->isAutoMergeEnabled) {
        return Turn{Whose::others, TurnReason::autoMerge};
    }
    return isReady() ? Found(Turn{Whose::ready, TurnReason::readyToMerge}) : std::nullopt;
}

/// What blocks the user's own pull request until the user acts.
std::optional<Turn> Judgement::toFix() const
{
    const auto yours = [](TurnReason reason) { return Turn{Whose::you, reason}; };
    if (auto names = standingRequestsForChanges(); !names.empty()) {
        return Turn{Whose::you, TurnReason::changesRequested, std::move(names)};
    }
    if (_pullRequest.hasMergeConflict()) {
        return yours(TurnReason::conflicts);
    }
    if (_pullRequest.checks.failed > 0) {
        Turn turn = yours(TurnReason::checksFailed);
        for (const SharedText& check : _details != nullptr ? std::span(_details->failedChecks)
                                                           : std::span<const SharedText>()) {
            turn.names.push_back(check.text());
        }
        return turn;
    }
    if (_facts != nullptr && _facts->openThreadCount > 0) {
        return Turn{Whose::you, TurnReason::openThreads, {}, _facts->openThreadCount};
    }
    return lacksReviewers() ? Found(yours(TurnReason::noReviewers)) : std::nullopt;
}

/// Reviewers who requested changes and whose review is not requested again.
std::vector<std::string> Judgement::standingRequestsForChanges() const
{
    std::vector<std::string> names;
    if (_details == nullptr) {
        return names;
    }
    for (const LatestReview& review : _details->reviews) {
        if (isRequestForChanges(review)
            && !containsLogin(_details->requestedUsers, review.author)) {
            names.push_back(review.author);
        }
    }
    return names;
}

std::int64_t Judgement::requiredApprovals() const
{
    return _pullRequest.requiredApprovingReviewCount.value_or(0);
}

bool Judgement::lacksReviewers() const
{
    const bool isRequired =
        requiredApprovals() > 0
        || (_facts != nullptr && _facts->reviewDecision == ReviewDecision::reviewRequired);
    return isRequired && _details != nullptr && _details->requestedUsers.empty()
           && _details->requestedTeams.empty()
           && std::ranges::all_of(_details->reviews, [&](const LatestReview& review) {
                  return review.verdict == ReviewVerdict::pending
                         || isSameLogin(review.author, _pullRequest.author);
              });
}

bool Judgement::isReady() const
{
    if (_details == nullptr || _facts == nullptr) {
        return false;
    }
    // A truncated list may hide a failure.
    const bool areChecksDone =
        _pullRequest.checks.completed == _pullRequest.checks.total && !_details->checkLimit;
    return _pullRequest.state == PullRequestState::open
           && _pullRequest.mergeability == PullRequestMergeability::mergeable && areChecksDone
           && !hasRequestForChanges() && hasApprovals() && _facts->threadCount <= largestThreadCount
           && _facts->openThreadCount == 0;
}

/// Requires: details and facts.
bool Judgement::hasRequestForChanges() const
{
    return _facts->reviewDecision == ReviewDecision::changesRequested
           || _pullRequest.reviewState == ReviewState::changesRequested
           || std::ranges::any_of(_details->reviews, isRequestForChanges);
}

/// Requires: details and facts.
bool Judgement::hasApprovals() const
{
    if (_facts->reviewDecision == ReviewDecision::reviewRequired) {
        return false;
    }
    if (requiredApprovals() > 0) {
        return std::ranges::count(
                   _details->reviews, ReviewVerdict::approved, &LatestReview::verdict)
               >= requiredApprovals();
    }
    return _details->requestedUsers.empty() && _details->requestedTeams.empty()
           && !_details->requestLimit && !_details->reviewLimit;
}

std::optional<Turn> Judgement::ofSomebodyElses() const
{
    if (_details != nullptr && containsLogin(_details->requestedUsers, _login)) {
        return Turn{
            Whose::you, hasReviewed() ? TurnReason::yourReviewAgain : TurnReason::yourReview};
    }
    if (hasMovedSinceOwnReview()) {
        return Turn{Whose::you, TurnReason::yourReviewAgain};
    }
    if (_details != nullptr && _details->asksForUser && _details->requestedUsers.empty()
        && !_details->requestedTeams.empty()) {
        Turn turn{Whose::teams, TurnReason::teamReview};
        addNames(turn.names, _details->requestedTeams);
        return turn;
    }
    return std::nullopt;
}

/// Requires: details.
bool Judgement::hasReviewed() const
{
    if (_facts != nullptr && _facts->ownReview
        && _facts->ownReview->verdict != ReviewVerdict::pending) {
        return true;
    }
    return std::ranges::any_of(_details->reviews, [&](const LatestReview& review) {
        return review.verdict != ReviewVerdict::pending && isSameLogin(review.author, _login);
    });
}

bool Judgement::hasMovedSinceOwnReview() const
{
    if (_facts == nullptr || !_facts->ownReview) {
        return false;
    }
    const OwnReview& review = *_facts->ownReview;
    return (review.verdict == ReviewVerdict::changesRequested
            || review.verdict == ReviewVerdict::commented)
           && review.commit != _facts->headCommit;
}

Turn Judgement::ofOthers() const
{
    if (!isOwn() && _pullRequest.isBlocked()) {
        return {Whose::others, TurnReason::waitingFor, {_pullRequest.author}};
    }
    if (_details != nullptr) {
        Turn waiting{Whose::others, TurnReason::waitingFor};
        addNames(waiting.names, _details->requestedUsers);
        addNames(waiting.names, _details->requestedTeams);
        if (!waiting.names.empty()) {
            return waiting;
        }
    }
    const ProgressCount& checks = _pullRequest.checks;
    if (checks.completed + checks.failed < checks.total) {
        return {Whose::others, TurnReason::checksRunning};
    }
    return {Whose::others, _pullRequest.isDraft ? TurnReason::draft : TurnReason::none};
}

}  // namespace

Turn turnOf(
    const PullRequest& pullRequest,
    const PullRequestDetails* details,
    const PullRequestFacts* facts,
    std::string_view login,
    std::optional<std::int64_t> basedOn)
{
    return Judgement(pullRequest, details, facts, login, basedOn).turn();
}

bool isSameLogin(std::string_view one, std::string_view other)
{
    return std::ranges::equal(one, other, {}, lowered, lowered);
}

}  // namespace PullRequestKit

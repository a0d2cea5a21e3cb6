#include "PullRequestKit/TurnRules.h"
#include "PullRequestKit/TurnWording.h"
#include "Support/PullRequests.h"

#include <algorithm>

#include <rapidcheck/gtest.h>

namespace {

using namespace TestSupport;
using Users = std::vector<std::string>;

rc::Gen<std::string> anyLogin()
{
    return rc::gen::element<std::string>("ada", "ADA", "bo", "noa-b", "ghost", "");
}

rc::Gen<ReviewVerdict> anyVerdict()
{
    return rc::gen::map(
        rc::gen::inRange(0, 5), [](int value) { return static_cast<ReviewVerdict>(value); });
}

rc::Gen<std::optional<std::int64_t>> maybe(std::int64_t value)
{
    return rc::gen::element<std::optional<std::int64_t>>(std::nullopt, value);
}

PullRequest anyPullRequest()
{
    PullRequest made = makePullRequest(7);
    made.author = *anyLogin();
    made.isDraft = *rc::gen::arbitrary<bool>();
    made.state = static_cast<PullRequestState>(*rc::gen::inRange(0, 3));
    made.mergeability = static_cast<PullRequestMergeability>(*rc::gen::inRange(0, 3));
    made.reviewState = static_cast<ReviewState>(*rc::gen::inRange(0, 5));
    made.checks = {*rc::gen::inRange(0, 3), *rc::gen::inRange(0, 3), *rc::gen::inRange(0, 2)};
    made.requiredApprovingReviewCount =
        *rc::gen::element<std::optional<std::int64_t>>(std::nullopt, 0, 1, 2);
    return made;
}

PullRequestDetails anyDetails()
{
    PullRequestDetails details;
    details.requestedUsers = *rc::gen::container<Users>(anyLogin());
    details.requestedTeams = *rc::gen::container<Users>(anyLogin());
    details.asksForUser = *rc::gen::arbitrary<bool>();
    for (const std::string& author : *rc::gen::container<Users>(anyLogin())) {
        details.reviews.push_back({author, *anyVerdict()});
    }
    details.requestLimit = *maybe(100);
    details.reviewLimit = *maybe(100);
    details.checkLimit = *maybe(100);
    return details;
}

PullRequestFacts anyFacts()
{
    PullRequestFacts facts;
    facts.headCommit = "c2";
    facts.reviewDecision = *rc::gen::element<std::optional<ReviewDecision>>(
        std::nullopt,
        ReviewDecision::approved,
        ReviewDecision::changesRequested,
        ReviewDecision::reviewRequired);
    facts.isInMergeQueue = *rc::gen::arbitrary<bool>();
    facts.mergeQueuePosition = *maybe(2);
    facts.isAutoMergeEnabled = *rc::gen::arbitrary<bool>();
    if (*rc::gen::arbitrary<bool>()) {
        facts.ownReview = {
            *anyVerdict(),
            {},
            *rc::gen::element<std::optional<std::string>>(std::nullopt, "c1", "c2")};
    }
    facts.threadCount = *rc::gen::element<std::int64_t>(0, 1, 100, 101);
    facts.openThreadCount = *rc::gen::inRange(0, 2);
    return facts;
}

struct Known {
    PullRequest pullRequest = anyPullRequest();
    std::optional<PullRequestDetails> details =
        *rc::gen::arbitrary<bool>() ? std::optional(anyDetails()) : std::nullopt;
    std::optional<PullRequestFacts> facts =
        *rc::gen::arbitrary<bool>() ? std::optional(anyFacts()) : std::nullopt;
    std::string login = *anyLogin();
    std::optional<std::int64_t> basedOn = *maybe(412);

    Turn turn() const
    {
        return turnOf(
            pullRequest, details ? &*details : nullptr, facts ? &*facts : nullptr, login, basedOn);
    }
};

bool isOneOf(TurnReason reason, std::initializer_list<TurnReason> reasons)
{
    return std::ranges::find(reasons, reason) != reasons.end();
}

/// Every reason belongs to one group, with names or a number where its text has them.
RC_GTEST_PROP(TurnRulesProperties, everyReasonStandsUnderItsHeading, ())
{
    using enum TurnReason;
    const Turn turn = Known().turn();
    switch (turn.whose) {
    case Whose::you:
        RC_ASSERT(isOneOf(
            turn.reason,
            {yourReview,
             yourReviewAgain,
             changesRequested,
             conflicts,
             checksFailed,
             openThreads,
             noReviewers}));
        break;
    case Whose::ready:
        RC_ASSERT(turn.reason == readyToMerge);
        break;
    case Whose::teams:
        RC_ASSERT(turn.reason == teamReview);
        break;
    case Whose::others:
        RC_ASSERT(isOneOf(
            turn.reason,
            {none,
             draft,
             waitingFor,
             waitingForPullRequest,
             checksRunning,
             mergeQueue,
             autoMerge}));
        break;
    }
    RC_ASSERT(turn.reason != waitingFor || !turn.names.empty());
    RC_ASSERT(reasonText(turn).empty() == (turn.reason == none));
    RC_ASSERT(reasonText(turn).starts_with(reasonWords(turn)));
}

RC_GTEST_PROP(TurnRulesProperties, theSameIsAlwaysSaidOfTheSame, ())
{
    const Known known;
    const Known copy = known;
    RC_ASSERT(copy.turn() == known.turn());
}

RC_GTEST_PROP(TurnRulesProperties, letterCaseOfLoginsSaysNothing, ())
{
    Known known;
    const Turn turn = known.turn();
    std::ranges::transform(known.login, known.login.begin(), [](char letter) {
        return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
    });
    RC_ASSERT(known.turn() == turn);
}

/// One's own that is ready, but for the few things that are taken from any other.
Known nearlyReady()
{
    Known known;
    const Known other;
    known.login = "ada";
    known.basedOn.reset();
    known.pullRequest = makePullRequest(7);
    known.pullRequest.author = "ada";
    known.details = PullRequestDetails();
    known.facts = PullRequestFacts();
    const auto changes = *rc::gen::container<std::vector<int>>(3, rc::gen::inRange(0, 12));
    for (const int change : changes) {
        switch (change) {
        case 0:
            known.pullRequest.checks = other.pullRequest.checks;
            break;
        case 1:
            known.pullRequest.mergeability = other.pullRequest.mergeability;
            break;
        case 2:
            known.pullRequest.reviewState = other.pullRequest.reviewState;
            break;
        case 3:
            known.pullRequest.requiredApprovingReviewCount =
                other.pullRequest.requiredApprovingReviewCount;
            break;
        case 4:
            known.pullRequest.state = other.pullRequest.state;
            break;
        case 5:
            known.pullRequest.isDraft = other.pullRequest.isDraft;
            break;
        case 6:
            known.details = other.details;
            break;
        case 7:
            known.facts = other.facts;
            break;
        default:
            break;
        }
    }
    return known;
}

RC_GTEST_PROP(TurnRulesProperties, nothingThatCannotBeMergedIsReady, ())
{
    const Known known = nearlyReady();
    RC_PRE(known.turn().whose == Whose::ready);
    const PullRequest& pullRequest = known.pullRequest;
    RC_ASSERT(known.facts.has_value());
    RC_ASSERT(known.details.has_value());
    RC_ASSERT(pullRequest.state == PullRequestState::open && !pullRequest.isDraft);
    RC_ASSERT(!pullRequest.hasMergeConflict());
    RC_ASSERT(pullRequest.checks.failed == 0);
    RC_ASSERT(pullRequest.checks.completed == pullRequest.checks.total);
    RC_ASSERT(pullRequest.reviewState != ReviewState::changesRequested);
    RC_ASSERT(known.facts->reviewDecision != ReviewDecision::changesRequested);
    RC_ASSERT(known.facts->reviewDecision != ReviewDecision::reviewRequired);
    std::int64_t approvals = 0;
    for (const LatestReview& review : known.details->reviews) {
        RC_ASSERT(review.verdict != ReviewVerdict::changesRequested);
        approvals += review.verdict == ReviewVerdict::approved ? 1 : 0;
    }
    RC_ASSERT(approvals >= pullRequest.requiredApprovingReviewCount.value_or(0));
    RC_ASSERT(known.facts->openThreadCount == 0);
}

RC_GTEST_PROP(TurnRulesProperties, anUnknownLoginNeverHasATurn, ())
{
    Known known;
    known.login = "";
    RC_ASSERT(known.turn() == Turn{});
}

}  // namespace

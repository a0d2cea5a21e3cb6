#include "PullRequestKit/TurnRules.h"

#include "PullRequestKit/TurnWording.h"
#include "Support/PullRequests.h"

#include <functional>

#include <gmock/gmock.h>

namespace {

using namespace PullRequestKit;
using TestSupport::makePullRequest;
using enum ReviewVerdict;

/// What a rule looks at, as a test changes it: one's own pull request, mergeable, of which
/// everything is known and nothing stands in the way. The user is "ada".
struct Known {
    PullRequest pullRequest = [] {
        auto made = makePullRequest(7);
        made.author = "ada";
        return made;
    }();
    std::optional<PullRequestDetails> details = PullRequestDetails();
    std::optional<PullRequestFacts> facts = [] {
        PullRequestFacts made;
        made.headCommit = "c2";
        return made;
    }();
    std::string login = "ada";
    std::optional<std::int64_t> basedOn;

    Turn turn() const
    {
        return turnOf(
            pullRequest, details ? &*details : nullptr, facts ? &*facts : nullptr, login, basedOn);
    }
};

/// The reason and whose turn it is, such as "you: Your review".
std::string said(const Known& known)
{
    const Turn turn = known.turn();
    const std::string reason = reasonText(turn);
    return std::string(nameOf(turn.whose)) + (reason.empty() ? "" : ": " + reason);
}

struct Case {
    const char* name;
    std::function<void(Known&)> change;
    const char* expected;
};

void expectEach(const std::vector<Case>& cases, const Known& start)
{
    for (const Case& each : cases) {
        Known known = start;
        each.change(known);
        EXPECT_EQ(said(known), each.expected) << each.name;
    }
}

Known own()
{
    return {};
}

Known somebodyElses()
{
    Known known;
    known.pullRequest.author = "bo";
    return known;
}

TEST(TurnRules, toAnUnknownLoginEverythingIsTheOthersWithoutAReason)
{
    Known known = somebodyElses();
    known.login = "";
    known.pullRequest.isDraft = true;
    known.pullRequest.checks.failed = 1;
    known.details->requestedUsers = {"ada", ""};
    EXPECT_EQ(known.turn(), Turn{});
    known.pullRequest.author = "";
    EXPECT_EQ(known.turn(), Turn{});
}

TEST(TurnRules, ownDraftsWaitForNobody)
{
    expectEach(
        {{"plain", [](Known&) {}, "others: Draft"},
         {"before what stands in the way",
          [](Known& known) {
              known.pullRequest.mergeability = PullRequestMergeability::conflicting;
              known.pullRequest.checks = {1, 2, 1};
              known.basedOn = 3;
              known.details->requestedUsers = {"bo"};
          },
          "others: Draft"},
         {"letter case", [](Known& known) { known.login = "ADA"; }, "others: Draft"}},
        [] {
            Known draft = own();
            draft.pullRequest.isDraft = true;
            return draft;
        }());
}

TEST(TurnRules, whoIsAskedByNameReviews)
{
    const auto reviewed = [](ReviewVerdict verdict) {
        return [verdict](Known& known) { known.details->reviews = {{"ada", verdict}}; };
    };
    const auto reviewedByFacts = [](ReviewVerdict verdict) {
        return [verdict](Known& known) { known.facts->ownReview = {verdict, {}, "c2"}; };
    };
    expectEach(
        {{"never reviewed", [](Known&) {}, "you: Your review"},
         {"in other letters",
          [](Known& known) { known.details->requestedUsers = {"bo", "ADA"}; },
          "you: Your review"},
         {"a draft", [](Known& known) { known.pullRequest.isDraft = true; }, "you: Your review"},
         {"a blocked one",
          [](Known& known) {
              known.pullRequest.mergeability = PullRequestMergeability::conflicting;
          },
          "you: Your review"},
         {"with a team",
          [](Known& known) { known.details->requestedTeams = {"platform"}; },
          "you: Your review"},
         {"without facts", [](Known& known) { known.facts.reset(); }, "you: Your review"},
         {"approved before", reviewed(approved), "you: Your review again"},
         {"changes requested before", reviewed(changesRequested), "you: Your review again"},
         {"commented before", reviewed(commented), "you: Your review again"},
         {"dismissed", reviewed(dismissed), "you: Your review again"},
         {"begun and not submitted", reviewed(pending), "you: Your review"},
         {"reviewed in other letters",
          [](Known& known) { known.details->reviews = {{"Ada", approved}}; },
          "you: Your review again"},
         {"reviewed by somebody else",
          [](Known& known) { known.details->reviews = {{"noa-b", approved}}; },
          "you: Your review"},
         {"facts: dismissed", reviewedByFacts(dismissed), "you: Your review again"},
         {"facts: approved", reviewedByFacts(approved), "you: Your review again"},
         {"facts: begun and not submitted", reviewedByFacts(pending), "you: Your review"}},
        [] {
            Known asked = somebodyElses();
            asked.details->requestedUsers = {"ada"};
            return asked;
        }());
}

TEST(TurnRules, whatStandsInTheWayOfOnesOwnIsOnesOwnTurn)
{
    expectEach(
        {{"changes requested",
          [](Known& known) { known.details->reviews = {{"noa-b", changesRequested}}; },
          "you: Changes requested: noa-b"},
         {"by several",
          [](Known& known) {
              known.details->reviews = {
                  {"noa-b", changesRequested}, {"bo", approved}, {"mara", changesRequested}};
          },
          "you: Changes requested: noa-b, mara"},
         {"who is asked again does not count",
          [](Known& known) {
              known.details->reviews = {{"noa-b", changesRequested}, {"mara", changesRequested}};
              known.details->requestedUsers = {"Noa-B"};
          },
          "you: Changes requested: mara"},
         {"conflict",
          [](Known& known) {
              known.pullRequest.mergeability = PullRequestMergeability::conflicting;
          },
          "you: Conflicts"},
         {"failed checks",
          [](Known& known) {
              known.pullRequest.checks = {1, 3, 2};
              known.details->failedChecks = {"build", "test (linux)"};
          },
          "you: Checks failed: build, test (linux)"},
         {"failed checks without names",
          [](Known& known) { known.pullRequest.checks = {1, 3, 2}; },
          "you: Checks failed"},
         {"one open thread",
          [](Known& known) { known.facts->threadCount = known.facts->openThreadCount = 1; },
          "you: 1 open thread"},
         {"open threads",
          [](Known& known) {
              known.facts->threadCount = 4;
              known.facts->openThreadCount = 3;
          },
          "you: 3 open threads"},
         {"a required approval",
          [](Known& known) { known.pullRequest.requiredApprovingReviewCount = 1; },
          "you: No reviewers yet"},
         {"a review required by another rule",
          [](Known& known) { known.facts->reviewDecision = ReviewDecision::reviewRequired; },
          "you: No reviewers yet"},
         {"a required approval without facts",
          [](Known& known) {
              known.pullRequest.requiredApprovingReviewCount = 1;
              known.facts.reset();
          },
          "you: No reviewers yet"},
         {"one's own remarks are no review",
          [](Known& known) {
              known.pullRequest.requiredApprovingReviewCount = 1;
              known.details->reviews = {{"Ada", commented}, {"noa-b", pending}};
          },
          "you: No reviewers yet"}},
        own());
}

TEST(TurnRules, thingsInTheWayAreNamedInTheirOrder)
{
    Known known = own();
    known.pullRequest.requiredApprovingReviewCount = 1;
    EXPECT_EQ(said(known), "you: No reviewers yet");
    known.facts->openThreadCount = known.facts->threadCount = 2;
    EXPECT_EQ(said(known), "you: 2 open threads");
    known.pullRequest.checks = {0, 1, 1};
    EXPECT_EQ(said(known), "you: Checks failed");
    known.pullRequest.mergeability = PullRequestMergeability::conflicting;
    EXPECT_EQ(said(known), "you: Conflicts");
    known.details->reviews = {{"noa-b", changesRequested}};
    EXPECT_EQ(said(known), "you: Changes requested: noa-b");
    known.basedOn = 3;
    known.facts->isInMergeQueue = true;
    EXPECT_EQ(said(known), "you: Changes requested: noa-b");
}

TEST(TurnRules, aRequiredReviewThatSomebodyIsAskedForOrGaveLacksNobody)
{
    expectEach(
        {{"a user is asked",
          [](Known& known) { known.details->requestedUsers = {"mara"}; },
          "others: Waiting for mara"},
         {"a team is asked",
          [](Known& known) { known.details->requestedTeams = {"platform"}; },
          "others: Waiting for platform"},
         {"somebody commented",
          [](Known& known) { known.details->reviews = {{"mara", commented}}; },
          "others"},
         {"somebody's was dismissed",
          [](Known& known) { known.details->reviews = {{"mara", dismissed}}; },
          "others"},
         {"who is asked is not known", [](Known& known) { known.details.reset(); }, "others"}},
        [] {
            Known known = own();
            known.pullRequest.requiredApprovingReviewCount = 1;
            return known;
        }());
}

TEST(TurnRules, withoutFactsThreadsAreNotKnown)
{
    Known known = own();
    known.facts.reset();
    EXPECT_EQ(said(known), "others");
    known.details->requestedUsers = {"bo"};
    EXPECT_EQ(said(known), "others: Waiting for bo");
}

TEST(TurnRules, ownOnesWaitForWhatTheyAreBasedOn)
{
    expectEach(
        {{"plain", [](Known&) {}, "others: Waiting for #412"},
         {"before the merge queue",
          [](Known& known) { known.facts->isInMergeQueue = true; },
          "others: Waiting for #412"},
         {"without facts", [](Known& known) { known.facts.reset(); }, "others: Waiting for #412"},
         {"after what stands in the way",
          [](Known& known) { known.pullRequest.checks = {0, 1, 1}; },
          "you: Checks failed"},
         {"not somebody else's", [](Known& known) { known.pullRequest.author = "bo"; }, "others"}},
        [] {
            Known known = own();
            known.basedOn = 412;
            return known;
        }());
}

TEST(TurnRules, whatMergesByItselfWaits)
{
    const auto queuedAt = [](std::optional<std::int64_t> position) {
        return [position](Known& known) {
            known.facts->isInMergeQueue = true;
            known.facts->mergeQueuePosition = position;
        };
    };
    expectEach(
        {{"queued", queuedAt(2), "others: Merge queue, 2nd"},
         {"first", queuedAt(1), "others: Merge queue, 1st"},
         {"third", queuedAt(3), "others: Merge queue, 3rd"},
         {"eleventh", queuedAt(11), "others: Merge queue, 11th"},
         {"112th", queuedAt(112), "others: Merge queue, 112th"},
         {"121st", queuedAt(121), "others: Merge queue, 121st"},
         {"somewhere", queuedAt(std::nullopt), "others: Merge queue"},
         {"auto-merge",
          [](Known& known) { known.facts->isAutoMergeEnabled = true; },
          "others: Auto-merge"},
         {"both",
          [](Known& known) {
              known.facts->isAutoMergeEnabled = true;
              known.facts->isInMergeQueue = true;
          },
          "others: Merge queue"},
         {"somebody else's",
          [](Known& known) {
              known.pullRequest.author = "bo";
              known.facts->isInMergeQueue = true;
              known.facts->isAutoMergeEnabled = true;
          },
          "others"}},
        own());
}

TEST(TurnRules, readyIsWhatCanBeMerged)
{
    expectEach(
        {{"nothing required", [](Known&) {}, "ready: Ready to merge"},
         {"checks passed",
          [](Known& known) { known.pullRequest.checks = {4, 4, 0}; },
          "ready: Ready to merge"},
         {"approved by rule",
          [](Known& known) { known.facts->reviewDecision = ReviewDecision::approved; },
          "ready: Ready to merge"},
         {"as many approvals as required",
          [](Known& known) {
              known.pullRequest.requiredApprovingReviewCount = 2;
              known.details->reviews = {{"bo", approved}, {"mara", approved}};
              known.details->requestedUsers = {"noa-b"};
          },
          "ready: Ready to merge"},
         {"100 threads, none open",
          [](Known& known) { known.facts->threadCount = 100; },
          "ready: Ready to merge"},
         {"none required and somebody commented",
          [](Known& known) { known.details->reviews = {{"bo", commented}}; },
          "ready: Ready to merge"},
         {"somebody else's", [](Known& known) { known.pullRequest.author = "bo"; }, "others"}},
        own());
}

TEST(TurnRules, oneThingMissingIsNotReady)
{
    expectEach(
        {{"facts", [](Known& known) { known.facts.reset(); }, "others"},
         {"details", [](Known& known) { known.details.reset(); }, "others"},
         {"mergeability",
          [](Known& known) { known.pullRequest.mergeability = PullRequestMergeability::unknown; },
          "others"},
         {"a check runs",
          [](Known& known) { known.pullRequest.checks = {3, 4, 0}; },
          "others: Checks running"},
         {"checks beyond the limit",
          [](Known& known) { known.details->checkLimit = 100; },
          "others"},
         {"a decision for changes",
          [](Known& known) { known.facts->reviewDecision = ReviewDecision::changesRequested; },
          "others"},
         {"changes requested by a deleted account",
          [](Known& known) { known.pullRequest.reviewState = ReviewState::changesRequested; },
          "others"},
         {"changes requested by someone who is asked again",
          [](Known& known) {
              known.pullRequest.requiredApprovingReviewCount = 1;
              known.details->reviews = {{"bo", changesRequested}, {"mara", approved}};
              known.details->requestedUsers = {"bo"};
          },
          "others: Waiting for bo"},
         {"a review that another rule requires",
          [](Known& known) {
              known.facts->reviewDecision = ReviewDecision::reviewRequired;
              known.details->reviews = {{"bo", approved}};
          },
          "others"},
         {"one approval of two",
          [](Known& known) {
              known.pullRequest.requiredApprovingReviewCount = 2;
              known.details->reviews = {{"bo", approved}, {"mara", commented}};
          },
          "others"},
         {"none required, somebody still asked",
          [](Known& known) {
              known.details->reviews = {{"bo", approved}};
              known.details->requestedUsers = {"mara"};
          },
          "others: Waiting for mara"},
         {"none required, a team still asked",
          [](Known& known) { known.details->requestedTeams = {"platform"}; },
          "others: Waiting for platform"},
         {"101 threads", [](Known& known) { known.facts->threadCount = 101; }, "others"},
         {"merged meanwhile",
          [](Known& known) { known.pullRequest.state = PullRequestState::merged; },
          "others"}},
        own());
}

TEST(TurnRules, whoReviewedLooksAgainWhenTheHeadHasMoved)
{
    const auto reviewed = [](ReviewVerdict verdict, std::optional<std::string> commit) {
        return [verdict, commit](Known& known) { known.facts->ownReview = {verdict, {}, commit}; };
    };
    expectEach(
        {{"changes requested", reviewed(changesRequested, "c1"), "you: Your review again"},
         {"commented", reviewed(commented, "c1"), "you: Your review again"},
         {"its commit is gone", reviewed(commented, std::nullopt), "you: Your review again"},
         {"not moved", reviewed(changesRequested, "c2"), "others"},
         {"approved", reviewed(approved, "c1"), "others"},
         {"dismissed", reviewed(dismissed, "c1"), "others"},
         {"begun and not submitted", reviewed(pending, "c1"), "others"},
         {"without details",
          [](Known& known) {
              known.facts->ownReview = {commented, {}, "c1"};
              known.details.reset();
          },
          "you: Your review again"},
         {"before the team",
          [](Known& known) {
              known.facts->ownReview = {commented, {}, "c1"};
              known.details->requestedTeams = {"platform"};
              known.details->asksForUser = true;
          },
          "you: Your review again"},
         {"one's own",
          [](Known& known) {
              known.pullRequest.author = "ada";
              known.facts->ownReview = {commented, {}, "c1"};
          },
          "ready: Ready to merge"}},
        somebodyElses());
}

TEST(TurnRules, aTeamOfTheUsersReviewsWhereOnlyTeamsAreAsked)
{
    expectEach(
        {{"plain", [](Known&) {}, "teams: Your team’s review: platform"},
         {"several",
          [](Known& known) { known.details->requestedTeams = {"platform", "web"}; },
          "teams: Your team’s review: platform, web"},
         {"without a name",
          [](Known& known) { known.details->requestedTeams = {""}; },
          "teams: Your team’s review"},
         {"a draft",
          [](Known& known) { known.pullRequest.isDraft = true; },
          "teams: Your team’s review: platform"},
         {"somebody is asked by name",
          [](Known& known) { known.details->requestedUsers = {"mara"}; },
          "others: Waiting for mara, platform"},
         {"it is not known whose team it is",
          [](Known& known) { known.details->asksForUser = false; },
          "others: Waiting for platform"},
         {"nobody is asked any more",
          [](Known& known) { known.details->requestedTeams.clear(); },
          "others"},
         {"one's own",
          [](Known& known) { known.pullRequest.author = "ada"; },
          "others: Waiting for platform"}},
        [] {
            Known known = somebodyElses();
            known.details->requestedTeams = {"platform"};
            known.details->asksForUser = true;
            return known;
        }());
}

TEST(TurnRules, theRestWaitsForOthers)
{
    expectEach(
        {{"nothing to say", [](Known&) {}, "others"},
         {"a conflict",
          [](Known& known) {
              known.pullRequest.mergeability = PullRequestMergeability::conflicting;
              known.details->requestedUsers = {"mara"};
          },
          "others: Waiting for bo"},
         {"failed checks",
          [](Known& known) { known.pullRequest.checks = {1, 3, 1}; },
          "others: Waiting for bo"},
         {"changes requested",
          [](Known& known) { known.pullRequest.reviewState = ReviewState::changesRequested; },
          "others: Waiting for bo"},
         {"people and teams",
          [](Known& known) {
              known.details->requestedTeams = {"platform"};
              known.details->requestedUsers = {"mara", "noa-b"};
              known.pullRequest.checks = {1, 3, 0};
          },
          "others: Waiting for mara, noa-b, platform"},
         {"a team without a name",
          [](Known& known) { known.details->requestedTeams = {""}; },
          "others"},
         {"checks",
          [](Known& known) {
              known.pullRequest.checks = {1, 3, 0};
              known.pullRequest.isDraft = true;
          },
          "others: Checks running"},
         {"a draft", [](Known& known) { known.pullRequest.isDraft = true; }, "others: Draft"},
         {"without details", [](Known& known) { known.details.reset(); }, "others"}},
        somebodyElses());
}

TEST(TurnRules, ownBlockedOnesNeverWaitForTheirAuthor)
{
    Known known = own();
    known.pullRequest.reviewState = ReviewState::changesRequested;
    known.details->reviews = {{"noa-b", changesRequested}};
    known.details->requestedUsers = {"noa-b"};
    EXPECT_EQ(said(known), "others: Waiting for noa-b");
}

TEST(TurnRules, loginsCompareWithoutLetterCase)
{
    EXPECT_TRUE(isSameLogin("Noa-B", "noa-b"));
    EXPECT_TRUE(isSameLogin("", ""));
    EXPECT_FALSE(isSameLogin("noa-b", "noa"));
    EXPECT_FALSE(isSameLogin("noa_b", "noa-b"));
    EXPECT_FALSE(isSameLogin("[", "{"));
}

}  // namespace

#include "PullRequestKit/TurnRules.h"

#include "PullRequestKit/TurnWording.h"
#include "Support/PullRequests.h"

#include <functional>

namespace {

using namespace TestSupport;
using enum ReviewVerdict;

/// What a rule looks at, as a test changes it: one's own pull request, mergeable, of which
/// everything is known and nothing stands in the way. The user is "ada".
struct Known {
    PullRequest pullRequest = with(makePullRequest(7), &PullRequest::author, "ada");
    std::optional<PullRequestDetails> details = PullRequestDetails();
    std::optional<PullRequestFacts> facts =
        with(PullRequestFacts(), &PullRequestFacts::headCommit, "c2");
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

/// One thing in which a case differs from what its test starts from.
using Difference = std::function<void(Known&)>;

/// Makes of a value the difference that one field has it.
template<typename Record, typename Value>
struct Field {
    Value Record::* field;

    Difference operator()(Value value) const
    {
        return [field = field, value](Known& known) {
            if constexpr (std::is_same_v<Record, PullRequest>) {
                known.pullRequest.*field = value;
            } else if constexpr (std::is_same_v<Record, PullRequestDetails>) {
                known.details.value().*field = value;
            } else {
                known.facts.value().*field = value;
            }
        };
    }
};

const Field author{&PullRequest::author};
const Field isDraft{&PullRequest::isDraft};
const Field mergeability{&PullRequest::mergeability};
const Field checks{&PullRequest::checks};
const Field requiredApprovals{&PullRequest::requiredApprovingReviewCount};
const Field reviewState{&PullRequest::reviewState};
const Field state{&PullRequest::state};
const Field asked{&PullRequestDetails::requestedUsers};
const Field teams{&PullRequestDetails::requestedTeams};
const Field asksForUser{&PullRequestDetails::asksForUser};
const Field reviews{&PullRequestDetails::reviews};
const Field failedChecks{&PullRequestDetails::failedChecks};
const Field checkLimit{&PullRequestDetails::checkLimit};
const Field threads{&PullRequestFacts::threadCount};
const Field openThreads{&PullRequestFacts::openThreadCount};
const Field decision{&PullRequestFacts::reviewDecision};
const Field ownReview{&PullRequestFacts::ownReview};
const Field isQueued{&PullRequestFacts::isInMergeQueue};
const Field queuePosition{&PullRequestFacts::mergeQueuePosition};
const Field mergesItself{&PullRequestFacts::isAutoMergeEnabled};

const Difference conflicts = mergeability(PullRequestMergeability::conflicting);
const Difference withoutFacts = [](Known& known) { known.facts.reset(); };
const Difference withoutDetails = [](Known& known) { known.details.reset(); };

Difference basedOn(std::int64_t number)
{
    return [number](Known& known) { known.basedOn = number; };
}

Difference login(const char* name)
{
    return [name](Known& known) { known.login = name; };
}

using Differences = std::vector<Difference>;

struct Case {
    const char* name;
    Differences differences;
    const char* expected;
};

/// The user's own pull request with these differences.
Known own(const Differences& differences = {})
{
    Known known;
    for (const Difference& each : differences) {
        each(known);
    }
    return known;
}

Known somebodyElses(const Differences& differences = {})
{
    Differences all{author("bo")};
    all.insert(all.end(), differences.begin(), differences.end());
    return own(all);
}

void expectEach(const std::vector<Case>& cases, const Known& start)
{
    for (const Case& each : cases) {
        Known known = start;
        for (const Difference& difference : each.differences) {
            difference(known);
        }
        EXPECT_EQ(said(known), each.expected) << each.name;
    }
}

TEST(TurnRules, toAnUnknownLoginEverythingIsTheOthersWithoutAReason)
{
    Known known = somebodyElses({login(""), isDraft(true), checks({0, 0, 1}), asked({"ada", ""})});
    EXPECT_EQ(known.turn(), Turn{});
    known.pullRequest.author = "";
    EXPECT_EQ(known.turn(), Turn{});
}

TEST(TurnRules, ownDraftsWaitForNobody)
{
    expectEach(
        {{"plain", {}, "others: Draft"},
         {"before what stands in the way",
          {conflicts, checks({1, 2, 1}), basedOn(3), asked({"bo"})},
          "others: Draft"},
         {"letter case", {login("ADA")}, "others: Draft"}},
        own({isDraft(true)}));
}

TEST(TurnRules, whoIsAskedByNameReviews)
{
    const auto reviewed = [](ReviewVerdict verdict) { return reviews({{"ada", verdict}}); };
    const auto reviewedByFacts = [](ReviewVerdict verdict) {
        return ownReview({{verdict, {}, "c2"}});
    };
    expectEach(
        {{"never reviewed", {}, "you: Your review"},
         {"in other letters", {asked({"bo", "ADA"})}, "you: Your review"},
         {"a draft", {isDraft(true)}, "you: Your review"},
         {"a blocked one", {conflicts}, "you: Your review"},
         {"with a team", {teams({"platform"})}, "you: Your review"},
         {"without facts", {withoutFacts}, "you: Your review"},
         {"approved before", {reviewed(approved)}, "you: Your review again"},
         {"changes requested before", {reviewed(changesRequested)}, "you: Your review again"},
         {"commented before", {reviewed(commented)}, "you: Your review again"},
         {"dismissed", {reviewed(dismissed)}, "you: Your review again"},
         {"begun and not submitted", {reviewed(pending)}, "you: Your review"},
         {"reviewed in other letters", {reviews({{"Ada", approved}})}, "you: Your review again"},
         {"reviewed by somebody else", {reviews({{"noa-b", approved}})}, "you: Your review"},
         {"facts: dismissed", {reviewedByFacts(dismissed)}, "you: Your review again"},
         {"facts: approved", {reviewedByFacts(approved)}, "you: Your review again"},
         {"facts: begun and not submitted", {reviewedByFacts(pending)}, "you: Your review"}},
        somebodyElses({asked({"ada"})}));
}

TEST(TurnRules, whatStandsInTheWayOfOnesOwnIsOnesOwnTurn)
{
    const auto required = requiredApprovals(1);
    expectEach(
        {{"changes requested",
          {reviews({{"noa-b", changesRequested}})},
          "you: Changes requested: noa-b"},
         {"by several",
          {reviews({{"noa-b", changesRequested}, {"bo", approved}, {"mara", changesRequested}})},
          "you: Changes requested: noa-b, mara"},
         {"who is asked again does not count",
          {reviews({{"noa-b", changesRequested}, {"mara", changesRequested}}), asked({"Noa-B"})},
          "you: Changes requested: mara"},
         {"conflict", {conflicts}, "you: Conflicts"},
         {"failed checks",
          {checks({1, 3, 2}), failedChecks({"build", "test (linux)"})},
          "you: Checks failed: build, test (linux)"},
         {"failed checks without names", {checks({1, 3, 2})}, "you: Checks failed"},
         {"one open thread", {threads(1), openThreads(1)}, "you: 1 open thread"},
         {"open threads", {threads(4), openThreads(3)}, "you: 3 open threads"},
         {"a required approval", {required}, "you: No reviewers yet"},
         {"a review required by another rule",
          {decision(ReviewDecision::reviewRequired)},
          "you: No reviewers yet"},
         {"a required approval without facts", {required, withoutFacts}, "you: No reviewers yet"},
         {"one's own remarks are no review",
          {required, reviews({{"Ada", commented}, {"noa-b", pending}})},
          "you: No reviewers yet"}},
        own());
}

TEST(TurnRules, thingsInTheWayAreNamedInTheirOrder)
{
    Known known = own();
    const auto saidWith = [&](const Difference& difference) {
        difference(known);
        return said(known);
    };
    EXPECT_EQ(saidWith(requiredApprovals(1)), "you: No reviewers yet");
    threads(2)(known);
    EXPECT_EQ(saidWith(openThreads(2)), "you: 2 open threads");
    EXPECT_EQ(saidWith(checks({0, 1, 1})), "you: Checks failed");
    EXPECT_EQ(saidWith(conflicts), "you: Conflicts");
    const char* const requested = "you: Changes requested: noa-b";
    EXPECT_EQ(saidWith(reviews({{"noa-b", changesRequested}})), requested);
    basedOn(3)(known);
    EXPECT_EQ(saidWith(isQueued(true)), requested);
}

TEST(TurnRules, aRequiredReviewThatSomebodyIsAskedForOrGaveLacksNobody)
{
    expectEach(
        {{"a user is asked", {asked({"mara"})}, "others: Waiting for mara"},
         {"a team is asked", {teams({"platform"})}, "others: Waiting for platform"},
         {"somebody commented", {reviews({{"mara", commented}})}, "others"},
         {"somebody's was dismissed", {reviews({{"mara", dismissed}})}, "others"},
         {"who is asked is not known", {withoutDetails}, "others"}},
        own({requiredApprovals(1)}));
}

TEST(TurnRules, withoutFactsThreadsAreNotKnown)
{
    EXPECT_EQ(said(own({withoutFacts})), "others");
    EXPECT_EQ(said(own({withoutFacts, asked({"bo"})})), "others: Waiting for bo");
}

TEST(TurnRules, ownOnesWaitForWhatTheyAreBasedOn)
{
    expectEach(
        {{"plain", {}, "others: Waiting for #412"},
         {"before the merge queue", {isQueued(true)}, "others: Waiting for #412"},
         {"without facts", {withoutFacts}, "others: Waiting for #412"},
         {"after what stands in the way", {checks({0, 1, 1})}, "you: Checks failed"},
         {"not somebody else's", {author("bo")}, "others"}},
        own({basedOn(412)}));
}

TEST(TurnRules, whatMergesByItselfWaits)
{
    const auto queue = isQueued(true);
    expectEach(
        {{"queued", {queue, queuePosition(2)}, "others: Merge queue, 2nd"},
         {"first", {queue, queuePosition(1)}, "others: Merge queue, 1st"},
         {"third", {queue, queuePosition(3)}, "others: Merge queue, 3rd"},
         {"eleventh", {queue, queuePosition(11)}, "others: Merge queue, 11th"},
         {"112th", {queue, queuePosition(112)}, "others: Merge queue, 112th"},
         {"121st", {queue, queuePosition(121)}, "others: Merge queue, 121st"},
         {"somewhere", {queue}, "others: Merge queue"},
         {"auto-merge", {mergesItself(true)}, "others: Auto-merge"},
         {"both", {mergesItself(true), queue}, "others: Merge queue"},
         {"somebody else's", {author("bo"), queue, mergesItself(true)}, "others"}},
        own());
}

TEST(TurnRules, readyIsWhatCanBeMerged)
{
    expectEach(
        {{"nothing required", {}, "ready: Ready to merge"},
         {"checks passed", {checks({4, 4, 0})}, "ready: Ready to merge"},
         {"approved by rule", {decision(ReviewDecision::approved)}, "ready: Ready to merge"},
         {"as many approvals as required",
          {requiredApprovals(2), reviews({{"bo", approved}, {"mara", approved}}), asked({"noa-b"})},
          "ready: Ready to merge"},
         {"100 threads, none open", {threads(100)}, "ready: Ready to merge"},
         {"none required and somebody commented",
          {reviews({{"bo", commented}})},
          "ready: Ready to merge"},
         {"somebody else's", {author("bo")}, "others"}},
        own());
}

TEST(TurnRules, oneThingMissingIsNotReady)
{
    expectEach(
        {{"facts", {withoutFacts}, "others"},
         {"details", {withoutDetails}, "others"},
         {"mergeability", {mergeability(PullRequestMergeability::unknown)}, "others"},
         {"a check runs", {checks({3, 4, 0})}, "others: Checks running"},
         {"checks beyond the limit", {checkLimit(100)}, "others"},
         {"a decision for changes", {decision(ReviewDecision::changesRequested)}, "others"},
         {"changes requested by a deleted account",
          {reviewState(ReviewState::changesRequested)},
          "others"},
         {"changes requested by someone who is asked again",
          {requiredApprovals(1),
           reviews({{"bo", changesRequested}, {"mara", approved}}),
           asked({"bo"})},
          "others: Waiting for bo"},
         {"a review that another rule requires",
          {decision(ReviewDecision::reviewRequired), reviews({{"bo", approved}})},
          "others"},
         {"one approval of two",
          {requiredApprovals(2), reviews({{"bo", approved}, {"mara", commented}})},
          "others"},
         {"none required, somebody still asked",
          {reviews({{"bo", approved}}), asked({"mara"})},
          "others: Waiting for mara"},
         {"none required, a team still asked",
          {teams({"platform"})},
          "others: Waiting for platform"},
         {"101 threads", {threads(101)}, "others"},
         {"merged meanwhile", {state(PullRequestState::merged)}, "others"}},
        own());
}

TEST(TurnRules, whoReviewedLooksAgainWhenTheHeadHasMoved)
{
    const auto reviewed = [](ReviewVerdict verdict, std::optional<std::string> commit) {
        return ownReview({{verdict, {}, std::move(commit)}});
    };
    const auto remarked = reviewed(commented, "c1");
    expectEach(
        {{"changes requested", {reviewed(changesRequested, "c1")}, "you: Your review again"},
         {"commented", {remarked}, "you: Your review again"},
         {"its commit is gone", {reviewed(commented, std::nullopt)}, "you: Your review again"},
         {"not moved", {reviewed(changesRequested, "c2")}, "others"},
         {"approved", {reviewed(approved, "c1")}, "others"},
         {"dismissed", {reviewed(dismissed, "c1")}, "others"},
         {"begun and not submitted", {reviewed(pending, "c1")}, "others"},
         {"without details", {remarked, withoutDetails}, "you: Your review again"},
         {"before the team",
          {remarked, teams({"platform"}), asksForUser(true)},
          "you: Your review again"},
         {"one's own", {author("ada"), remarked}, "ready: Ready to merge"}},
        somebodyElses());
}

TEST(TurnRules, aTeamOfTheUsersReviewsWhereOnlyTeamsAreAsked)
{
    expectEach(
        {{"plain", {}, "teams: Your team’s review: platform"},
         {"several", {teams({"platform", "web"})}, "teams: Your team’s review: platform, web"},
         {"without a name", {teams({""})}, "teams: Your team’s review"},
         {"a draft", {isDraft(true)}, "teams: Your team’s review: platform"},
         {"somebody is asked by name", {asked({"mara"})}, "others: Waiting for mara, platform"},
         {"it is not known whose team it is", {asksForUser(false)}, "others: Waiting for platform"},
         {"nobody is asked any more", {teams({})}, "others"},
         {"one's own", {author("ada")}, "others: Waiting for platform"}},
        somebodyElses({teams({"platform"}), asksForUser(true)}));
}

TEST(TurnRules, theRestWaitsForOthers)
{
    expectEach(
        {{"nothing to say", {}, "others"},
         {"a conflict", {conflicts, asked({"mara"})}, "others: Waiting for bo"},
         {"failed checks", {checks({1, 3, 1})}, "others: Waiting for bo"},
         {"changes requested",
          {reviewState(ReviewState::changesRequested)},
          "others: Waiting for bo"},
         {"people and teams",
          {teams({"platform"}), asked({"mara", "noa-b"}), checks({1, 3, 0})},
          "others: Waiting for mara, noa-b, platform"},
         {"a team without a name", {teams({""})}, "others"},
         {"checks", {checks({1, 3, 0}), isDraft(true)}, "others: Checks running"},
         {"a draft", {isDraft(true)}, "others: Draft"},
         {"without details", {withoutDetails}, "others"}},
        somebodyElses());
}

TEST(TurnRules, ownBlockedOnesNeverWaitForTheirAuthor)
{
    const Known known = own(
        {reviewState(ReviewState::changesRequested),
         reviews({{"noa-b", changesRequested}}),
         asked({"noa-b"})});
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

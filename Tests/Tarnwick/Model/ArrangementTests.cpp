#include "Tarnwick/Model/Arrangement.h"

#include "PullRequestKit/StackBuilder.h"
#include "Support/Mapped.h"
#include "Support/PullRequests.h"

#include <algorithm>
#include <set>

#include <rapidcheck/gtest.h>

namespace {

using namespace TestSupport;

/// A list whose reasons a test chooses: "ada" is the user, "bo" somebody else.
struct List {
    std::vector<PullRequest> listed;
    DetailsByID details;
    FactsByID facts;
    std::string login = "ada";

    /// Somebody else's, which asks for the user's review.
    void addForYou(PullRequest pullRequest)
    {
        pullRequest.author = "bo";
        details[pullRequest.id].requestedUsers = {"ada"};
        listed.push_back(std::move(pullRequest));
    }

    void addForTeams(PullRequest pullRequest)
    {
        pullRequest.author = "bo";
        details[pullRequest.id].requestedTeams = {"platform"};
        details[pullRequest.id].asksForUser = true;
        listed.push_back(std::move(pullRequest));
    }

    void addReady(PullRequest pullRequest)
    {
        pullRequest.author = "ada";
        details[pullRequest.id] = {};
        facts[pullRequest.id] = {};
        listed.push_back(std::move(pullRequest));
    }

    /// The user's own, which waits for a review.
    void addForOthers(PullRequest pullRequest)
    {
        pullRequest.author = "ada";
        details[pullRequest.id].requestedUsers = {"bo"};
        listed.push_back(std::move(pullRequest));
    }

    TurnSources sources() const { return {listed, details, facts, login}; }

    ArrangedRows arranged() const { return arrangedByTurn(StackBuilder::rows(listed), sources()); }

    ArrangedRows arrangedWithDimmed(std::set<std::int64_t> dimmed) const
    {
        return arrangedByTurn(
            StackBuilder::rows(listed), sources(), [&](const PullRequest& pullRequest) {
                return !dimmed.contains(pullRequest.id.number);
            });
    }
};

PullRequestRow rowOf(const PullRequest& pullRequest)
{
    PullRequestRow row;
    row.pullRequest = pullRequest;
    return row;
}

std::vector<std::int64_t> numbers(const std::vector<PullRequestRow>& rows)
{
    return mapped(rows, [](const auto& row) { return row.id().number; });
}

std::vector<TurnReason> reasons(const ArrangedRows& list)
{
    return mapped(list.turns, &Turn::reason);
}

TEST(Arrangement, headingsComeInTheirOrderAndEmptyOnesNotAtAll)
{
    List list;
    list.addForOthers(makePullRequest(1));
    list.addForTeams(makePullRequest(2));
    list.addForYou(makePullRequest(3));
    const ArrangedRows arranged = list.arranged();
    EXPECT_THAT(numbers(arranged.rows), ElementsAre(3, 2, 1));
    EXPECT_THAT(
        arranged.groups,
        ElementsAre(
            TurnGroup{Whose::you, 0, 1, 1},
            TurnGroup{Whose::teams, 1, 1, 1},
            TurnGroup{Whose::others, 2, 1, 1}));
    EXPECT_THAT(
        reasons(arranged),
        ElementsAre(TurnReason::yourReview, TurnReason::teamReview, TurnReason::waitingFor));
}

TEST(Arrangement, insideAHeadingTheOrderIsTheOneOfTheList)
{
    List list;
    for (const std::int64_t number : {1, 2, 3, 4, 5, 6}) {
        auto pullRequest = makePullRequest(number);
        pullRequest.updatedAt += std::chrono::seconds(number);
        number % 2 == 0 ? list.addForYou(pullRequest) : list.addReady(pullRequest);
    }
    EXPECT_THAT(numbers(StackBuilder::rows(list.listed)), ElementsAre(6, 5, 4, 3, 2, 1));
    EXPECT_THAT(numbers(list.arranged().rows), ElementsAre(6, 4, 2, 5, 3, 1));
}

TEST(Arrangement, aWholeStackStandsUnderTheFirstHeadingThatAMemberEarns)
{
    List list;
    list.addForYou(makePullRequest(9));
    list.addForOthers(makePullRequest(1, "one", "main"));
    list.addForYou(makePullRequest(2, "two", "one"));
    list.addForTeams(makePullRequest(3, "three", "two"));
    const ArrangedRows arranged = list.arranged();
    EXPECT_THAT(numbers(arranged.rows), ElementsAre(1, 2, 3, 9));
    EXPECT_THAT(arranged.groups, ElementsAre(TurnGroup{Whose::you, 0, 4, 2}));
    EXPECT_EQ(arranged.rows[2].depth, 2);
}

TEST(Arrangement, dimmedRowsNeitherCountNorMoveAStack)
{
    List list;
    list.addForOthers(makePullRequest(1, "one", "main"));
    list.addForYou(makePullRequest(2, "two", "one"));
    list.addForYou(makePullRequest(3));
    const ArrangedRows arranged = list.arrangedWithDimmed({2, 3});
    EXPECT_THAT(numbers(arranged.rows), ElementsAre(3, 1, 2));
    EXPECT_THAT(
        arranged.groups,
        ElementsAre(TurnGroup{Whose::you, 0, 1, 0}, TurnGroup{Whose::others, 1, 2, 1}));
}

TEST(Arrangement, ownOnesWaitForTheOneBelowThemEvenWhenItIsHidden)
{
    List list;
    list.addForYou(makePullRequest(1, "one", "main"));
    list.addReady(makePullRequest(2, "two", "one"));
    const std::vector shown{rowOf(list.listed[1])};
    EXPECT_THAT(
        turnsOf(shown, list.sources()),
        ElementsAre(Turn{Whose::others, TurnReason::waitingForPullRequest, {}, 1}));
}

TEST(Arrangement, ofSeveralWithTheBaseAsTheirHeadTheLowestOtherNumberIsWaitedFor)
{
    List list;
    list.addForYou(makePullRequest(7, "one", "main"));
    list.addForYou(makePullRequest(5, "one", "main"));
    list.addReady(makePullRequest(3, "one", "one"));
    list.addReady(makePullRequest(8, "two", "one"));
    const std::vector shown{rowOf(list.listed[2]), rowOf(list.listed[3])};
    const auto turns = turnsOf(shown, list.sources());
    EXPECT_EQ(turns[0].number, 5);
    EXPECT_EQ(turns[1].number, 3);
}

TEST(Arrangement, aBranchOfTheSameNameElsewhereIsNotTheBase)
{
    const PullRequest child = makePullRequest(2, "two", "one");
    auto inAFork = makePullRequest(1, "one", "main");
    inAFork.head.repository = "bo/tools";
    auto elsewhere = makePullRequest(3, "one", "main");
    elsewhere.id.repository = "octo/site";
    elsewhere.head.repository = "octo/site";
    auto onAnotherHost = makePullRequest(4, "one", "main");
    onAnotherHost.id.host = "github.example";
    for (const PullRequest& other : {inAFork, elsewhere, onAnotherHost}) {
        List list;
        list.addForYou(other);
        list.addReady(child);
        EXPECT_EQ(
            turnsOf(std::vector{rowOf(list.listed[1])}, list.sources()).front().reason,
            TurnReason::readyToMerge);
    }
}

TEST(Arrangement, byReviewStateNothingIsAdded)
{
    List list;
    list.addForYou(makePullRequest(1));
    const ArrangedRows rows =
        arranged(Arrangement::byReviewState, StackBuilder::rows(list.listed), list.sources());
    EXPECT_THAT(numbers(rows.rows), ElementsAre(1));
    EXPECT_THAT(rows.turns, IsEmpty());
    EXPECT_THAT(rows.groups, IsEmpty());
}

/// Some of the pull requests ask the user, some teams, some nobody.
List anyList()
{
    List list;
    list.login = *rc::gen::element<std::string>("ada", "ADA", "");
    const auto numbers = *rc::gen::container<std::vector<int>>(rc::gen::inRange(0, 4));
    std::int64_t number = 0;
    for (const int kind : numbers) {
        auto pullRequest = *crowdedPullRequest();
        pullRequest.id = makePullRequest(++number).id;
        pullRequest.isDraft = false;
        switch (kind) {
        case 0:
            list.addForYou(pullRequest);
            break;
        case 1:
            list.addForTeams(pullRequest);
            break;
        case 2:
            list.addReady(pullRequest);
            break;
        default:
            list.addForOthers(pullRequest);
        }
    }
    return list;
}

RC_GTEST_PROP(ArrangementProperties, keepsEachRowAndEachStackWhole, ())
{
    const List list = anyList();
    const auto before = StackBuilder::rows(list.listed);
    const ArrangedRows after = list.arranged();
    RC_ASSERT(after.rows.size() == before.size());
    RC_ASSERT(after.turns == turnsOf(after.rows, list.sources()));

    // Taken by heading, the stacks have the order that they had.
    std::size_t next = 0;
    for (const TurnGroup& group : after.groups) {
        RC_ASSERT(group.firstRow == next);
        RC_ASSERT(group.rowCount > 0U);
        RC_ASSERT(after.rows[next].depth == 0);
        next += group.rowCount;
        auto place = before.begin();
        for (std::size_t row = group.firstRow; row < next; ++row) {
            place = std::find(place, before.end(), after.rows[row]);
            RC_ASSERT(place != before.end());
            // The macro would evaluate both sides of "||".
            const bool followsItsParent =
                after.rows[row].depth == 0 || *std::prev(place) == after.rows[row - 1];
            RC_ASSERT(followsItsParent);
            RC_ASSERT(after.turns[row].whose >= group.whose);
        }
    }
    RC_ASSERT(next == after.rows.size());
}

RC_GTEST_PROP(ArrangementProperties, eachHeadingIsThereOnceAndIsEarned, ())
{
    const ArrangedRows list = anyList().arranged();
    for (std::size_t index = 0; index < list.groups.size(); ++index) {
        const TurnGroup& group = list.groups[index];
        const bool isInOrder = index == 0 || list.groups[index - 1].whose < group.whose;
        RC_ASSERT(isInOrder);
        const auto first = list.turns.begin() + static_cast<std::ptrdiff_t>(group.firstRow);
        const auto earned = std::count_if(
            first, first + static_cast<std::ptrdiff_t>(group.rowCount), [&](const Turn& turn) {
                return turn.whose == group.whose;
            });
        RC_ASSERT(group.count == static_cast<std::size_t>(earned));
        RC_ASSERT(group.count > 0U);
    }
}

}  // namespace

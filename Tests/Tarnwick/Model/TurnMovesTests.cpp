#include "Tarnwick/Model/TurnMoves.h"

#include "Support/Mapped.h"
#include "Support/PullRequests.h"

#include <algorithm>

namespace {

using namespace TestSupport;

/// One refresh after the other, as the user "ada" sees them. The pull requests are somebody else's;
/// a test says of which the user's review is requested.
class TurnMoves : public testing::Test {
protected:
    /// Each of these is listed, at the head that `heads` says, "c1" otherwise.
    std::vector<std::string> refresh(
        const std::vector<std::int64_t>& listed, const std::vector<std::int64_t>& asking)
    {
        now += 1min;
        std::vector<PullRequestRow> rows;
        DetailsByID details;
        FactsByID facts;
        for (const std::int64_t number : listed) {
            PullRequestRow& row = rows.emplace_back();
            row.pullRequest = makePullRequest(number);
            row.pullRequest.author = "bo";
            const bool isAsking = std::ranges::find(asking, number) != asking.end();
            details[row.id()].requestedUsers =
                isAsking ? std::vector<std::string>{"ada"} : std::vector<std::string>();
            if (head) {
                facts[row.id()].headCommit = *head;
                facts[row.id()].updatedAt = row.pullRequest.updatedAt;
            }
        }
        last = known.update(
            {.rows = rows,
             .sources = {listedOf(rows), details, facts, "ada"},
             .scope = scope,
             .now = now,
             .isFirst = std::exchange(isFirst, false),
             .toldOtherwise = toldOtherwise,
             .muted = muted});
        return told();
    }

    std::vector<std::string> refreshAndSettle(
        const std::vector<std::int64_t>& listed, const std::vector<std::int64_t>& asking)
    {
        auto said = refresh(listed, asking);
        for (const TurnMove& move : last) {
            known.settle(move);
        }
        return said;
    }

    std::vector<std::string> told() const
    {
        return mapped(last, [](const TurnMove& move) {
            return std::to_string(move.pullRequest.id.number) + " at " + move.head;
        });
    }

    void restart() { isFirst = true; }

    KnownTurns known;
    std::vector<TurnMove> last;
    std::optional<std::string> head = "c1";
    std::string scope = "octo";
    bool isFirst = true;
    std::unordered_set<PullRequestID> toldOtherwise;
    std::vector<PullRequestID> muted;
    Date now = date("2024-05-01T12:00:00Z");

private:
    std::span<const PullRequest> listedOf(const std::vector<PullRequestRow>& rows)
    {
        _listed.clear();
        for (const PullRequestRow& row : rows) {
            _listed.push_back(row.pullRequest);
        }
        return _listed;
    }

    std::vector<PullRequest> _listed;
};

TEST_F(TurnMoves, nothingIsToldOfWhatWasThereAtTheStart)
{
    EXPECT_THAT(refresh({1, 2}, {1}), IsEmpty());
    EXPECT_THAT(refresh({1, 2}, {1}), IsEmpty());
}

TEST_F(TurnMoves, aMoveToTheUserIsTold)
{
    refresh({1, 2}, {});
    EXPECT_THAT(refreshAndSettle({1, 2}, {2}), ElementsAre("2 at c1"));
    EXPECT_EQ(last.front().turn, (Turn{Whose::you, TurnReason::yourReview}));
    EXPECT_THAT(refreshAndSettle({1, 2}, {2}), IsEmpty());
}

TEST_F(TurnMoves, whatAppearsInTheListHasMovedToo)
{
    refresh({1}, {});
    EXPECT_THAT(refreshAndSettle({1, 2}, {2}), ElementsAre("2 at c1"));
}

TEST_F(TurnMoves, whatAppearsAndWaitsForOthersIsNotTold)
{
    refresh({1}, {});
    EXPECT_THAT(refresh({1, 2}, {}), IsEmpty());
}

TEST_F(TurnMoves, whatIsNotSettledIsToldAgain)
{
    refresh({1}, {});
    EXPECT_THAT(refresh({1}, {1}), ElementsAre("1 at c1"));
    EXPECT_THAT(refreshAndSettle({1}, {1}), ElementsAre("1 at c1"));
    EXPECT_THAT(refresh({1}, {1}), IsEmpty());
}

TEST_F(TurnMoves, nobodyIsToldTwiceAtTheSameHead)
{
    refresh({1}, {});
    refreshAndSettle({1}, {1});
    refresh({1}, {});
    EXPECT_THAT(refresh({1}, {1}), IsEmpty());
    refresh({1}, {});
    head = "c2";
    EXPECT_THAT(refreshAndSettle({1}, {1}), ElementsAre("1 at c2"));
}

TEST_F(TurnMoves, goingOutOfTheListAndComingBackIsAMove)
{
    refresh({1}, {1});
    refresh({}, {});
    EXPECT_THAT(refreshAndSettle({1}, {1}), ElementsAre("1 at c1"));
    refresh({}, {});
    EXPECT_THAT(refresh({1}, {1}), IsEmpty());
}

TEST_F(TurnMoves, aHeadThatIsNotKnownIsTakenForTheSame)
{
    head.reset();
    refresh({1}, {1});
    refresh({}, {});
    EXPECT_THAT(refreshAndSettle({1}, {1}), ElementsAre("1 at "));
    refresh({}, {});
    head = "c1";
    EXPECT_THAT(refresh({1}, {1}), IsEmpty());
}

TEST_F(TurnMoves, aHeadThatBecomesKnownLaterIsTheOneThatWasTold)
{
    refresh({1}, {});
    head.reset();
    EXPECT_THAT(refreshAndSettle({1}, {1}), ElementsAre("1 at "));
    head = "c1";
    refresh({1}, {1});
    refresh({1}, {});
    EXPECT_THAT(refresh({1}, {1}), IsEmpty());
    refresh({1}, {});
    head = "c2";
    EXPECT_THAT(refresh({1}, {1}), ElementsAre("1 at c2"));
}

TEST_F(TurnMoves, withoutFactsOnlyWhatIsCertainCounts)
{
    refresh({1}, {1});
    head.reset();
    EXPECT_THAT(refresh({1}, {}), IsEmpty());
    head = "c1";
    EXPECT_THAT(refresh({1}, {1}), IsEmpty());
}

TEST_F(TurnMoves, whatWasNeverCertainIsThereFromTheStart)
{
    head.reset();
    refresh({1}, {});
    head = "c1";
    EXPECT_THAT(refresh({1}, {1}), IsEmpty());
}

TEST_F(TurnMoves, anotherScopeBeginsAnew)
{
    refresh({1}, {});
    scope = "bo";
    EXPECT_THAT(refresh({1, 2}, {1, 2}), IsEmpty());
    EXPECT_THAT(refresh({1, 2}, {1, 2}), IsEmpty());
}

TEST_F(TurnMoves, whatIsToldAsNewIsNotToldAgain)
{
    refresh({1}, {});
    toldOtherwise = {makePullRequest(2).id};
    EXPECT_THAT(refresh({1, 2}, {2}), IsEmpty());
    toldOtherwise.clear();
    EXPECT_THAT(refresh({1, 2}, {2}), IsEmpty());
    refresh({1, 2}, {});
    EXPECT_THAT(refresh({1, 2}, {2}), IsEmpty());
}

TEST_F(TurnMoves, theEndOfAMuteIsNoMove)
{
    refresh({1, 2}, {1});
    muted = {makePullRequest(1).id, makePullRequest(3).id};
    EXPECT_THAT(refresh({2}, {}), IsEmpty());
    EXPECT_THAT(refresh({2}, {}), IsEmpty());
    muted.clear();
    EXPECT_THAT(refresh({1, 2, 3}, {1, 3}), IsEmpty());
}

TEST_F(TurnMoves, aMoveThatEndsAMuteIsTold)
{
    refresh({1}, {});
    muted = {makePullRequest(1).id};
    EXPECT_THAT(refresh({}, {}), IsEmpty());
    muted.clear();
    EXPECT_THAT(refresh({1}, {1}), ElementsAre("1 at c1"));
}

TEST_F(TurnMoves, aMoveWhileTheProgramDidNotRunIsToldAfterTheStart)
{
    refresh({1, 2}, {2});
    restart();
    EXPECT_THAT(refreshAndSettle({1, 2, 3}, {1, 2, 3}), ElementsAre("1 at c1"));
    restart();
    EXPECT_THAT(refresh({1, 2, 3}, {1, 2, 3}), IsEmpty());
}

TEST_F(TurnMoves, afterARestWhatWasToldIsRemembered)
{
    refresh({1}, {});
    refreshAndSettle({1}, {1});
    EXPECT_TRUE(known.rest());
    EXPECT_FALSE(known.rest());
    EXPECT_THAT(refresh({1, 2}, {2}), IsEmpty());
    EXPECT_THAT(refresh({1, 2}, {1, 2}), IsEmpty());
}

TEST_F(TurnMoves, whatWasNotListedFor90DaysIsForgotten)
{
    refresh({1, 2}, {});
    now += std::chrono::days(90);
    refresh({1}, {});
    ASSERT_EQ(known.entries.size(), 1U);
    EXPECT_EQ(known.entries.front().id.number, 1);
}

TEST_F(TurnMoves, aClockSetBackForgetsNothing)
{
    refresh({1, 2}, {});
    now -= std::chrono::days(400);
    EXPECT_THAT(refresh({1}, {1}), ElementsAre("1 at c1"));
    EXPECT_EQ(known.entries.size(), 2U);
}

/// The user's own pull request 1.
class OwnTurnMoves : public TurnMoves {
protected:
    OwnTurnMoves()
    {
        row.pullRequest = with(makePullRequest(1), &PullRequest::author, "ada");
        facts.updatedAt = row.pullRequest.updatedAt;
        facts.headCommit = "c1";
    }

    std::vector<TurnMove> update()
    {
        const DetailsByID detailsByID{{row.id(), details}};
        const FactsByID factsByID{{row.id(), facts}};
        return known.update(
            {.rows = {row},
             .sources = {std::span(&row.pullRequest, 1), detailsByID, factsByID, "ada"},
             .scope = scope,
             .now = now += 1min,
             .isFirst = false,
             .toldOtherwise = {}});
    }

    PullRequestRow row;
    PullRequestDetails details;
    PullRequestFacts facts;
};

TEST_F(OwnTurnMoves, becomingReadyIsAMove)
{
    facts.openThreadCount = facts.threadCount = 1;
    EXPECT_THAT(update(), IsEmpty());
    facts.openThreadCount = 0;
    const auto moves = update();
    ASSERT_EQ(moves.size(), 1U);
    EXPECT_EQ(moves.front().turn, (Turn{Whose::ready, TurnReason::readyToMerge}));
}

TEST_F(OwnTurnMoves, factsOfAnEarlierVersionMakeNothingReady)
{
    details.requestedUsers = {"bo"};
    EXPECT_THAT(update(), IsEmpty());
    details.requestedUsers.clear();
    row.pullRequest.updatedAt += 1s;
    EXPECT_THAT(update(), IsEmpty());
    facts.updatedAt = row.pullRequest.updatedAt;
    EXPECT_EQ(update().size(), 1U);
}

TEST(TurnScope, saysAllThatTheUserIsLookingAt)
{
    const Settings settings;
    const std::string usual = scopeText(notificationScope("octo", settings));
    EXPECT_EQ(usual, scopeText(notificationScope("octo", Settings())));
    EXPECT_NE(usual, scopeText(notificationScope("bo", settings)));
    const std::vector<std::function<void(Settings&)>> changes{
        [](Settings& s) { s.selectedRepositories = {"octo/tools"}; },
        [](Settings& s) { s.statuses = {StatusFilter::draft}; },
        [](Settings& s) { s.checks = {ChecksFilter::fail}; },
        [](Settings& s) { s.reviewFilters = {ReviewFilter::none}; },
        [](Settings& s) { s.mergeabilities = {}; },
        [](Settings& s) { s.reviewerFilter = ReviewerFilter::any; }};
    std::set<std::string> texts{usual};
    for (const auto& change : changes) {
        Settings changed;
        change(changed);
        texts.insert(scopeText(notificationScope("octo", changed)));
    }
    EXPECT_EQ(texts.size(), changes.size() + 1);
}

}  // namespace

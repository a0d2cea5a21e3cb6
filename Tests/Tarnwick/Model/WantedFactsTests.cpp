#include "Tarnwick/Model/WantedFacts.h"

#include "Support/PullRequests.h"

namespace {

using namespace TestSupport;

const Date now = date("2024-05-01T13:00:00Z");

/// One row, its facts as they were told 10 minutes ago.
struct Row {
    PullRequestRow row;
    FactsByID facts;

    Row()
    {
        row.pullRequest = makePullRequest(7);
        PullRequestFacts& told = facts[row.id()];
        told.askedAt = now - 10min;
        told.updatedAt = row.pullRequest.updatedAt;
    }

    PullRequestFacts& known() { return facts.at(row.id()); }

    bool isWanting(const std::unordered_set<PullRequestID>& asked = {}) const
    {
        return !wantingFacts(std::vector{row}, facts, asked, now).empty();
    }
};

TEST(WantedFacts, newOnesAreNotAskedForAgain)
{
    EXPECT_FALSE(Row().isWanting());
}

TEST(WantedFacts, areAskedForWhereThereAreNone)
{
    Row row;
    row.facts.clear();
    EXPECT_TRUE(row.isWanting());
}

TEST(WantedFacts, areAskedForAgainWhenThePullRequestChanged)
{
    Row row;
    row.row.pullRequest.updatedAt += 1s;
    EXPECT_TRUE(row.isWanting());
}

TEST(WantedFacts, areAskedForAgainAfterHalfAnHour)
{
    Row row;
    row.known().askedAt = now - 30min;
    EXPECT_FALSE(row.isWanting());
    row.known().askedAt = now - 30min - 1s;
    EXPECT_TRUE(row.isWanting());
}

TEST(WantedFacts, areAskedForAgainWhenTheClockWasSetBack)
{
    Row row;
    row.known().askedAt = now + 1s;
    EXPECT_TRUE(row.isWanting());
}

TEST(WantedFacts, areAskedForAgainWhileTheMergeabilityIsNotKnown)
{
    Row row;
    row.row.pullRequest.mergeability = PullRequestMergeability::unknown;
    EXPECT_TRUE(row.isWanting());
    EXPECT_FALSE(row.isWanting({row.row.id()}));
}

TEST(WantedFacts, keepTheOrderOfTheRows)
{
    std::vector<PullRequestRow> rows(3);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        rows[row].pullRequest = makePullRequest(static_cast<std::int64_t>(9 - row));
    }
    const auto wanting = wantingFacts(rows, {}, {rows[1].id()}, now);
    EXPECT_THAT(wanting, ElementsAre(rows[0].pullRequest, rows[2].pullRequest));
}

TEST(WantedFacts, areNeededOnlyWhereSomethingSaysWhoseTurnItIs)
{
    Settings settings;
    settings.newPullRequestNotificationsEnabled = true;
    settings.unblockedNotificationsEnabled = true;
    EXPECT_FALSE(needsFacts(settings, true));
    settings.yourTurnNotificationsEnabled = true;
    EXPECT_TRUE(needsFacts(settings, true));
    EXPECT_FALSE(needsFacts(settings, false));
    settings.yourTurnNotificationsEnabled = false;
    settings.arrangement = Arrangement::byWhoseTurn;
    EXPECT_TRUE(needsFacts(settings, true));
    EXPECT_TRUE(needsFacts(settings, false));
}

}  // namespace

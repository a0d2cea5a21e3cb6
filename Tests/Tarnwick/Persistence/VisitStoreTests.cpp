#include "Tarnwick/Persistence/VisitStore.h"

#include "Fakes/MemoryDefaultsStore.h"
#include "Support/PullRequests.h"

namespace {

using namespace TestSupport;

class VisitStoreTest : public testing::Test {
protected:
    std::vector<std::string> storedKeys() const { return defaults.keys({}); }

    MemoryDefaultsStore defaults;
    Date now = date("2024-05-01T12:00:00Z");
    VisitStore visits{defaults, VisitStore::programPrefix, [this] { return now; }};
    PullRequestID id{"github", "github.com", "octo/tools", 12};
};

TEST_F(VisitStoreTest, yieldsNothingForWhatWasNeverVisited)
{
    EXPECT_EQ(visits.lastVisited(id), std::nullopt);
    EXPECT_FALSE(visits.isVisited(makePullRequest(12)));
}

TEST_F(VisitStoreTest, storesTheTimeUnderThePrefixAndTheStorageKey)
{
    visits.recordVisit(id);
    EXPECT_THAT(defaults.writtenKeys, ElementsAre("lastVisitedAt.github|github.com|octo/tools|12"));
    EXPECT_THAT(visits.lastVisited(id), Optional(date("2024-05-01T12:00:00Z")));
}

TEST_F(VisitStoreTest, replacesAnOlderVisit)
{
    visits.recordVisit(id);
    now = date("2024-05-02T08:00:00Z");
    visits.recordVisit(id);
    EXPECT_THAT(visits.lastVisited(id), Optional(date("2024-05-02T08:00:00Z")));
    EXPECT_EQ(defaults.values.size(), 1U);
}

TEST_F(VisitStoreTest, countsAVisitAtTheTimeOfTheUpdate)
{
    const auto pullRequest = with(makePullRequest(12), &PullRequest::updatedAt, now);
    visits.recordVisit(pullRequest.id);
    EXPECT_TRUE(visits.isVisited(pullRequest));
}

TEST_F(VisitStoreTest, countsALaterVisitAndNoEarlierOne)
{
    auto pullRequest = makePullRequest(12);
    visits.recordVisit(pullRequest.id);
    pullRequest.updatedAt = now - std::chrono::seconds{1};
    EXPECT_TRUE(visits.isVisited(pullRequest));
    pullRequest.updatedAt = now + std::chrono::seconds{1};
    EXPECT_FALSE(visits.isVisited(pullRequest));
}

TEST_F(VisitStoreTest, keepsTheSameNumberOfTwoRepositoriesApart)
{
    visits.recordVisit(id);
    EXPECT_EQ(visits.lastVisited({"github", "github.com", "octo/web", 12}), std::nullopt);
}

TEST_F(VisitStoreTest, keepsWhatAVisitSaw)
{
    auto pullRequest = with(makePullRequest(12), &PullRequest::checks, {4, 4, 0});
    visits.recordVisit(id, seenNow(pullRequest, nullptr));
    EXPECT_EQ(
        defaults.values.at("lastSeen.github|github.com|octo/tools|12"),
        "2024-05-01T12:00:00Z, open, ready, mergeable, none, 0/0, 4/4/0");
    EXPECT_THAT(visits.sinceVisit(pullRequest, nullptr).changes, IsEmpty());
    EXPECT_TRUE(visits.isVisited(pullRequest));

    pullRequest.checks = {2, 4, 1};
    now += std::chrono::hours(48);
    const SinceVisit since = visits.sinceVisit(pullRequest, nullptr);
    EXPECT_EQ(since.visitedAt, date("2024-05-01T12:00:00Z"));
    ASSERT_THAT(since.changes, SizeIs(1));
    EXPECT_EQ(since.changes[0], (Change{ChangeKind::checks, "4/4", "2/4"}));
    visits.recordVisit(id, seenNow(pullRequest, nullptr));
    EXPECT_THAT(visits.sinceVisit(pullRequest, nullptr).changes, IsEmpty());
}

TEST_F(VisitStoreTest, knowsOfNewCommitsByTheFacts)
{
    const auto pullRequest = makePullRequest(12);
    PullRequestFacts facts;
    facts.headCommit = "abc";
    visits.recordVisit(id, seenNow(pullRequest, &facts));
    facts.headCommit = "def";
    EXPECT_THAT(visits.sinceVisit(pullRequest, nullptr).changes, IsEmpty());
    const auto changes = visits.sinceVisit(pullRequest, &facts).changes;
    ASSERT_THAT(changes, SizeIs(1));
    EXPECT_EQ(changes[0].kind, ChangeKind::newCommits);
}

TEST_F(VisitStoreTest, namesNoChangeWhereItDoesNotKnowWhatAVisitSaw)
{
    auto pullRequest = makePullRequest(12);
    visits.recordVisit(id, seenNow(pullRequest, nullptr));
    pullRequest.checks = {2, 4, 1};
    defaults.values.insert_or_assign("lastSeen.github|github.com|octo/tools|12", "open, who knows");
    EXPECT_THAT(visits.sinceVisit(pullRequest, nullptr).changes, IsEmpty());
    EXPECT_TRUE(visits.isVisited(pullRequest));
    visits.recordVisit(id);
    EXPECT_THAT(storedKeys(), ElementsAre("lastVisitedAt.github|github.com|octo/tools|12"))
        << "a visit takes the memory of the one before along";
}

TEST_F(VisitStoreTest, forgetsAVisitAltogether)
{
    const auto pullRequest = makePullRequest(12);
    visits.recordVisit(id, seenNow(pullRequest, nullptr));
    visits.forgetVisit(id);
    EXPECT_THAT(storedKeys(), IsEmpty());
    EXPECT_FALSE(visits.isVisited(pullRequest));
}

TEST_F(VisitStoreTest, forgetsWhatHasNotBeenListedForNinetyDays)
{
    const auto stays = makePullRequest(1);
    const auto goes = makePullRequest(2);
    visits.recordVisit(stays.id, seenNow(stays, nullptr));
    visits.recordVisit(goes.id, seenNow(goes, nullptr));
    const std::vector both{stays, goes};
    for (int day = 0; day < 10; ++day, now += std::chrono::hours(24)) {
        visits.noteListed(both);
    }
    // Last listed on the ninth of these ten days, which lie 24 hours apart.
    now = date("2024-05-10T12:00:00Z") + std::chrono::days(90);
    visits.noteListed(std::span(both).first(1));
    EXPECT_THAT(visits.lastVisited(goes.id), Optional(date("2024-05-01T12:00:00Z")));
    now += std::chrono::days(1);
    visits.noteListed(std::span(both).first(1));
    EXPECT_EQ(visits.lastVisited(goes.id), std::nullopt);
    EXPECT_THAT(visits.lastVisited(stays.id), Optional(date("2024-05-01T12:00:00Z")));
    EXPECT_THAT(
        storedKeys(),
        ElementsAre(
            "lastListedAt.github|github.com|octo/tools|1",
            "lastSeen.github|github.com|octo/tools|1",
            "lastVisitedAt.github|github.com|octo/tools|1"));
}

TEST_F(VisitStoreTest, countsAVisitOfAnOlderVersionAsListedNow)
{
    const auto pullRequest = makePullRequest(12);
    visits.recordVisit(id);
    now += std::chrono::days(400);
    visits.noteListed(std::vector{pullRequest});
    now += std::chrono::days(90);
    visits.noteListed({});
    EXPECT_THAT(visits.lastVisited(id), Optional(date("2024-05-01T12:00:00Z")));
}

TEST_F(VisitStoreTest, notesWhatIsListedOnceADay)
{
    const std::vector listed{makePullRequest(12)};
    visits.recordVisit(id);
    now += std::chrono::hours(25);
    visits.noteListed(listed);
    defaults.writtenKeys.clear();
    now += std::chrono::hours(23);
    visits.noteListed(listed);
    EXPECT_THAT(defaults.writtenKeys, IsEmpty());
    now += std::chrono::hours(1);
    visits.noteListed(listed);
    EXPECT_THAT(defaults.writtenKeys, ElementsAre("lastListedAt.github|github.com|octo/tools|12"));
}

TEST_F(VisitStoreTest, isNotMisledByAClockThatWasSetBack)
{
    auto pullRequest = makePullRequest(12);
    pullRequest.updatedAt = now - std::chrono::hours(1);
    now += std::chrono::days(2);
    visits.recordVisit(id, seenNow(pullRequest, nullptr));
    now -= std::chrono::days(2);
    EXPECT_TRUE(visits.isVisited(pullRequest));
    auto later = pullRequest;
    later.updatedAt = now + std::chrono::minutes(5);
    EXPECT_FALSE(visits.isVisited(later)) << "the visit's own time lies behind the update";

    now += std::chrono::minutes(10);
    visits.noteListed(std::vector{later});
    EXPECT_THAT(visits.lastVisited(id), Optional(pullRequest.updatedAt));
    now += std::chrono::days(3);
    EXPECT_FALSE(visits.isVisited(later));
}

TEST_F(VisitStoreTest, takesAVisitToComeForOneOfNowWhereNothingWasUpdatedSince)
{
    const auto pullRequest = makePullRequest(12);
    now += std::chrono::days(2);
    visits.recordVisit(id, seenNow(pullRequest, nullptr));
    now -= std::chrono::days(2);
    visits.noteListed(std::vector{pullRequest});
    EXPECT_THAT(visits.lastVisited(id), Optional(now));
    EXPECT_TRUE(visits.isVisited(pullRequest));
}

TEST_F(VisitStoreTest, takesAValueOfAnotherTypeForNeverVisited)
{
    const std::string key = "lastVisitedAt.github|github.com|octo/tools|12";
    for (const char* const stored : {"2024-05-01T12:00:00Z", "1714564800", "true", "@Empty()"}) {
        defaults.values.insert_or_assign(key, stored);
        EXPECT_EQ(visits.lastVisited(id), std::nullopt);
    }
}

}  // namespace

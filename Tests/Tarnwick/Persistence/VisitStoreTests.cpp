#include "Tarnwick/Persistence/VisitStore.h"

#include "Fakes/MemoryDefaultsStore.h"
#include "Support/PullRequests.h"

#include <gmock/gmock.h>

namespace {

using namespace Qt::StringLiterals;
using namespace Tarnwick;
using PullRequestKit::PullRequestID;
using testing::Optional;
using TestSupport::date;
using TestSupport::makePullRequest;

class VisitStoreTest : public testing::Test {
protected:
    Fakes::MemoryDefaultsStore defaults;
    PullRequestKit::Date now = date("2024-05-01T12:00:00Z");
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
    EXPECT_THAT(
        defaults.writtenKeys,
        testing::ElementsAre(u"lastVisitedAt.github|github.com|octo/tools|12"));
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
    auto pullRequest = makePullRequest(12);
    pullRequest.updatedAt = now;
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

TEST_F(VisitStoreTest, takesAValueOfAnotherTypeForNeverVisited)
{
    const QString key = u"lastVisitedAt.github|github.com|octo/tools|12"_s;
    for (const QVariant& stored :
         {QVariant(u"2024-05-01T12:00:00Z"_s), QVariant(1714564800), QVariant(true), QVariant()}) {
        defaults.values.insert_or_assign(key, stored);
        EXPECT_EQ(visits.lastVisited(id), std::nullopt);
    }
}

}  // namespace

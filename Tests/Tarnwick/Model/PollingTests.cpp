#include "Fakes/ModelFixture.h"

namespace {

using namespace std::chrono_literals;
using Tarnwick::PollingInterval;
using Tarnwick::ReviewerFilter;
using testing::Contains;
using testing::ElementsAre;
using testing::Not;
using testing::UnorderedElementsAre;
using TestSupport::eventually;
using TestSupport::makePullRequest;

/// When refreshes happen by themselves.
class Polling : public TestSupport::ModelTest {
protected:
    void SetUp() override
    {
        selectTools();
        provider->setPullRequests({makePullRequest(1)});
        provider->setRepositories({"octo/tools", "octo/site"});
        start();
    }

    /// Waits until this many requests were answered.
    bool refreshed(std::size_t times)
    {
        return eventually(
            [&] { return provider->requests().size() == times && !model->isRefreshing(); });
    }
};

TEST_F(Polling, firstPollsAFullPeriodAfterTheStart)
{
    EXPECT_THAT(clock->sleepers(), ElementsAre(300'000ms));
    clock->advance(299s);
    EXPECT_EQ(provider->statusCalls(), 0);
    clock->advance(1s);
    EXPECT_TRUE(refreshed(1));
}

TEST_F(Polling, pollsAgainAFullPeriodAfterEachPoll)
{
    clock->advance(300s);
    ASSERT_TRUE(refreshed(1));
    EXPECT_TRUE(eventually([&] { return clock->sleepers().size() == 1; }));
    EXPECT_THAT(clock->sleepers(), ElementsAre(300'000ms));
    clock->advance(300s);
    EXPECT_TRUE(refreshed(2));
}

TEST_F(Polling, refreshesOnceHoweverManyPeriodsPassedUnnoticed)
{
    clock->advance(4h);
    ASSERT_TRUE(refreshed(1));
    EXPECT_TRUE(eventually([&] { return clock->sleepers().size() == 1; }));
    EXPECT_EQ(provider->requests().size(), 1U);
}

TEST_F(Polling, countsANewPeriodFromTheChange)
{
    clock->advance(200s);
    model->setPollingInterval(PollingInterval::oneMinute);
    EXPECT_THAT(clock->sleepers(), ElementsAre(60'000ms));
    EXPECT_EQ(model->settings().pollingInterval, PollingInterval::oneMinute);
    clock->advance(60s);
    EXPECT_TRUE(refreshed(1));
}

TEST_F(Polling, stopsWithTheModel)
{
    model.reset();
    EXPECT_TRUE(clock->sleepers().empty());
}

TEST_F(Polling, severalQuickChangesOfTheSelectionCauseOneRefresh)
{
    model->toggleRepository("octo/site");
    clock->advance(200ms);
    model->toggleRepository("octo/tools");
    clock->advance(200ms);
    model->toggleRepository("octo/tools");
    clock->advance(249ms);
    EXPECT_EQ(provider->statusCalls(), 0);
    clock->advance(1ms);
    ASSERT_TRUE(refreshed(1));
    EXPECT_THAT(
        provider->requests().front().repositories, UnorderedElementsAre("octo/site", "octo/tools"));
}

TEST_F(Polling, aChangedSelectionWaitsForTheEndOfARunningPoll)
{
    provider->hold();
    clock->advance(300s);
    ASSERT_TRUE(eventually([&] { return provider->waiting() == 1; }));
    model->toggleRepository("octo/site");
    clock->advance(250ms);
    EXPECT_THAT(clock->sleepers(), ElementsAre(50ms));
    clock->advance(50ms);
    EXPECT_THAT(clock->sleepers(), ElementsAre(50ms));
    EXPECT_EQ(provider->requests().size(), 1U);
    provider->release();
    ASSERT_TRUE(settle());
    clock->advance(50ms);
    ASSERT_TRUE(refreshed(2));
    EXPECT_THAT(
        provider->requests().back().repositories, UnorderedElementsAre("octo/site", "octo/tools"));
}

TEST_F(Polling, otherReviewersAreFetchedForAtOnce)
{
    model->setReviewerFilter(ReviewerFilter::any);
    EXPECT_TRUE(refreshed(1));
}

TEST_F(Polling, theSameReviewersAreNotFetchedForAgain)
{
    model->setReviewerFilter(ReviewerFilter::myself);
    clock->advance(1s);
    EXPECT_EQ(provider->statusCalls(), 0);
}

TEST_F(Polling, filtersOfWhatIsThereFetchNothing)
{
    model->toggleStatus(Tarnwick::StatusFilter::draft);
    model->toggleChecks(Tarnwick::ChecksFilter::pass);
    model->toggleReviewFilter(Tarnwick::ReviewFilter::approved);
    model->toggleMergeability(Tarnwick::MergeabilityFilter::unknown);
    clock->advance(1s);
    EXPECT_EQ(provider->statusCalls(), 0);
    EXPECT_THAT(clock->sleepers(), Not(Contains(testing::Lt(1000ms))));
}

}  // namespace

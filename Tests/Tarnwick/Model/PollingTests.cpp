#include "Fakes/ModelFixture.h"

namespace {

using namespace TestSupport;

/// When refreshes happen by themselves.
class Polling : public ModelTest {
protected:
    void SetUp() override
    {
        selectTools();
        provider->setPullRequests({makePullRequest(1)});
        provider->setRepositories({"octo/tools", "octo/site"});
        start();
    }

    /// How long the one sleeper sleeps, once there is one.
    std::vector<std::chrono::milliseconds> onlySleep() const
    {
        EXPECT_TRUE(eventually([&] { return clock->sleepers().size() == 1; }));
        return clock->sleepers();
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
    EXPECT_THAT(onlySleep(), ElementsAre(300'000ms));
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

TEST_F(Polling, aChangeOfThePeriodLosesNoRunningRefresh)
{
    pollAndHold();
    model->setPollingInterval(PollingInterval::oneHour);
    releaseAndSettle();
    EXPECT_EQ(model->state().kind, Kind::loaded);
    EXPECT_EQ(provider->cancelled(), 0);
    EXPECT_THAT(shownNumbers(), ElementsAre(1));
    EXPECT_THAT(clock->sleepers(), ElementsAre(3'600'000ms));
}

TEST_F(Polling, refreshesAtOnceWhenTheMachineWakes)
{
    machine->wake();
    ASSERT_TRUE(refreshed(1));
    EXPECT_THAT(onlySleep(), ElementsAre(300'000ms));
}

TEST_F(Polling, refreshesAtOnceAfterASleepLongerThanThePeriod)
{
    clock->suspend(8h);
    EXPECT_TRUE(refreshed(1));
}

TEST_F(Polling, aFailedRefreshAfterWakingIsRepeatedUntilTheNetworkIsThere)
{
    provider->setError("no such host");
    machine->wake();
    ASSERT_TRUE(refreshed(1));
    for (std::size_t tries = 2; tries <= 4; ++tries) {
        EXPECT_THAT(onlySleep(), ElementsAre(20'000ms));
        clock->advance(20s);
        ASSERT_TRUE(refreshed(tries));
    }
    provider->setError("");
    clock->advance(20s);
    ASSERT_TRUE(refreshed(5));
    EXPECT_EQ(model->state().kind, Kind::loaded);
    EXPECT_THAT(onlySleep(), ElementsAre(300'000ms));
}

TEST_F(Polling, isRepeatedForTenMinutesAtMost)
{
    provider->setError("no such host");
    clock->suspend(8h);
    ASSERT_TRUE(refreshed(1));
    for (std::size_t tries = 2; tries <= 30; ++tries) {
        ASSERT_TRUE(eventually([&] { return clock->sleepers().size() == 1; }));
        clock->advance(20s);
        ASSERT_TRUE(refreshed(tries));
    }
    ASSERT_TRUE(eventually([&] { return clock->sleepers().size() == 1; }));
    clock->advance(20s);
    EXPECT_THAT(onlySleep(), ElementsAre(300'000ms));
    EXPECT_EQ(provider->requests().size(), 30U);
}

TEST_F(Polling, aWakeDuringARefreshCausesAnotherOneAfterIt)
{
    pollAndHold();
    machine->wake();
    provider->release();
    EXPECT_TRUE(refreshed(2));
}

TEST_F(Polling, aNetworkThatReturnsIsUsedAtOnceAfterAFailureOnly)
{
    machine->returnNetwork();
    EXPECT_THAT(clock->sleepers(), ElementsAre(300'000ms));
    provider->setError("no such host");
    clock->advance(300s);
    ASSERT_TRUE(refreshed(1));
    provider->setError("");
    machine->returnNetwork();
    ASSERT_TRUE(refreshed(2));
    machine->returnNetwork();
    clock->advance(30s);
    EXPECT_EQ(provider->requests().size(), 2U);
}

TEST_F(Polling, aFailureLongAfterWakingIsNotRepeatedBeforeItsPeriod)
{
    machine->wake();
    ASSERT_TRUE(refreshed(1));
    provider->setError("HTTP 502");
    clock->advance(300s);
    ASSERT_TRUE(refreshed(2));
    EXPECT_THAT(onlySleep(), ElementsAre(300'000ms));
}

TEST_F(Polling, isNotRepeatedWhereNobodyWasSignedInBefore)
{
    provider->setStatus(NotAuthenticated{"Sign in, please."});
    clock->advance(300s);
    ASSERT_TRUE(eventually([&] { return provider->statusCalls() == 1 && !model->isRefreshing(); }));
    machine->wake();
    ASSERT_TRUE(eventually([&] { return provider->statusCalls() == 2 && !model->isRefreshing(); }));
    EXPECT_THAT(onlySleep(), ElementsAre(300'000ms));
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
    pollAndHold();
    model->toggleRepository("octo/site");
    clock->advance(250ms);
    EXPECT_THAT(clock->sleepers(), ElementsAre(50ms));
    clock->advance(50ms);
    EXPECT_THAT(clock->sleepers(), ElementsAre(50ms));
    EXPECT_EQ(provider->requests().size(), 1U);
    releaseAndSettle();
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
    model->toggleStatus(StatusFilter::draft);
    model->toggleChecks(ChecksFilter::pass);
    model->toggleReviewFilter(ReviewFilter::approved);
    model->toggleMergeability(MergeabilityFilter::unknown);
    clock->advance(1s);
    EXPECT_EQ(provider->statusCalls(), 0);
    EXPECT_THAT(clock->sleepers(), Not(Contains(Lt(1000ms))));
}

}  // namespace

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

TEST_F(Polling, aChangeOfThePeriodLosesNoRunningRefresh)
{
    provider->hold();
    clock->advance(300s);
    ASSERT_TRUE(eventually([&] { return provider->waiting() == 1; }));
    model->setPollingInterval(PollingInterval::oneHour);
    provider->release();
    ASSERT_TRUE(settle());
    EXPECT_EQ(model->state().kind, Kind::loaded);
    EXPECT_EQ(provider->cancelled(), 0);
    EXPECT_THAT(shownNumbers(), ElementsAre(1));
    EXPECT_THAT(clock->sleepers(), ElementsAre(3'600'000ms));
}

TEST_F(Polling, refreshesAtOnceWhenTheMachineWakes)
{
    machine->wake();
    ASSERT_TRUE(refreshed(1));
    ASSERT_TRUE(eventually([&] { return clock->sleepers().size() == 1; }));
    EXPECT_THAT(clock->sleepers(), ElementsAre(300'000ms));
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
        ASSERT_TRUE(eventually([&] { return clock->sleepers().size() == 1; }));
        EXPECT_THAT(clock->sleepers(), ElementsAre(20'000ms));
        clock->advance(20s);
        ASSERT_TRUE(refreshed(tries));
    }
    provider->setError("");
    clock->advance(20s);
    ASSERT_TRUE(refreshed(5));
    EXPECT_EQ(model->state().kind, Kind::loaded);
    ASSERT_TRUE(eventually([&] { return clock->sleepers().size() == 1; }));
    EXPECT_THAT(clock->sleepers(), ElementsAre(300'000ms));
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
    EXPECT_TRUE(eventually([&] { return clock->sleepers().size() == 1; }));
    EXPECT_THAT(clock->sleepers(), ElementsAre(300'000ms));
    EXPECT_EQ(provider->requests().size(), 30U);
}

TEST_F(Polling, aWakeDuringARefreshCausesAnotherOneAfterIt)
{
    provider->hold();
    clock->advance(300s);
    ASSERT_TRUE(eventually([&] { return provider->waiting() == 1; }));
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
    ASSERT_TRUE(eventually([&] { return clock->sleepers().size() == 1; }));
    EXPECT_THAT(clock->sleepers(), ElementsAre(300'000ms));
}

TEST_F(Polling, isNotRepeatedWhereNobodyWasSignedInBefore)
{
    provider->setStatus(PullRequestKit::NotAuthenticated{"Sign in, please."});
    clock->advance(300s);
    ASSERT_TRUE(eventually([&] { return provider->statusCalls() == 1; }));
    ASSERT_TRUE(settle());
    machine->wake();
    ASSERT_TRUE(eventually([&] { return provider->statusCalls() == 2; }));
    ASSERT_TRUE(settle());
    ASSERT_TRUE(eventually([&] { return clock->sleepers().size() == 1; }));
    EXPECT_THAT(clock->sleepers(), ElementsAre(300'000ms));
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

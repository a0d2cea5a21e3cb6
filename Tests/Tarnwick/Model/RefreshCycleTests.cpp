#include "Tarnwick/Model/RefreshCycle.h"

#include "Fakes/EventLoop.h"
#include "Fakes/FakeClock.h"
#include "Fakes/FakeProvider.h"
#include "Support/PullRequests.h"

#include <QThreadPool>

namespace {

using namespace TestSupport;
using Kind = MenuState::Kind;

class RefreshCycleTest : public testing::Test {
protected:
    RefreshCycleTest() { provider->setPullRequests({makePullRequest(1)}); }

    ~RefreshCycleTest() override
    {
        cycle.reset();
        provider->release();
        QThreadPool::globalInstance()->waitForDone();
        processEvents();
    }

    /// Writes down what a refresh does.
    std::unique_ptr<RefreshCycle> makeCycle()
    {
        return std::make_unique<RefreshCycle>(
            provider,
            clock,
            RefreshCycle::Steps{
                .begin = [this] { steps.emplace_back("begin"); },
                .start =
                    [this](const std::optional<std::string>& account) {
                        steps.push_back("start " + account.value_or(""));
                        return RefreshStart{account, std::make_shared<const Settings>()};
                    },
                .accept =
                    [this](const RefreshResult& result, const auto& /*start*/) {
                        steps.push_back("accept " + std::to_string(result.pullRequests->size()));
                        return isRight;
                    },
                .fail = [this](const MenuState& why) { steps.push_back("fail " + why.message); },
                .refused = [this] { steps.emplace_back("refused"); }});
    }

    void refresh() { runToEnd(cycle->refresh()); }

    void startAndHold()
    {
        provider->hold();
        cycle->start();
        ASSERT_TRUE(eventually([&] { return provider->waiting() == 1; }));
    }

    bool settle()
    {
        return eventually([&] { return !cycle->isRefreshing(); });
    }

    std::shared_ptr<FakeProvider> provider = std::make_shared<FakeProvider>();
    std::shared_ptr<FakeClock> clock = std::make_shared<FakeClock>();
    std::vector<std::string> steps;
    bool isRight = true;  ///< Whether an answer is the right one.
    std::unique_ptr<RefreshCycle> cycle = makeCycle();
};

TEST_F(RefreshCycleTest, asksForTheLoginAndThenForTheList)
{
    EXPECT_EQ(cycle->lastEnd(), RefreshEnd::none);
    refresh();
    EXPECT_THAT(steps, ElementsAre("begin", "start octo", "accept 1"));
    EXPECT_EQ(cycle->lastEnd(), RefreshEnd::fresh);
    EXPECT_FALSE(cycle->isRefreshing());
}

TEST_F(RefreshCycleTest, isNotFreshWithAnAnswerThatIsNoLongerTheRightOne)
{
    isRight = false;
    refresh();
    EXPECT_EQ(cycle->lastEnd(), RefreshEnd::none);
}

TEST_F(RefreshCycleTest, failsWithoutALogin)
{
    provider->setStatus(NotAuthenticated{"Sign in."});
    refresh();
    EXPECT_THAT(steps, ElementsAre("begin", "fail Sign in."));
    EXPECT_EQ(cycle->lastEnd(), RefreshEnd::signedOut);
    provider->setStatus(Unavailable{"There is no gh."});
    refresh();
    EXPECT_EQ(steps.back(), "fail There is no gh.");
    EXPECT_EQ(cycle->lastEnd(), RefreshEnd::failed);
}

TEST_F(RefreshCycleTest, tellsOfTheSecondaryLimitBeforeItFails)
{
    provider->setRefused(true);
    refresh();
    ASSERT_EQ(steps.size(), 4U);
    EXPECT_EQ(steps[2], "refused");
    EXPECT_EQ(cycle->lastEnd(), RefreshEnd::failed);
}

TEST_F(RefreshCycleTest, returnsWithoutEffectWhileAnotherOneRuns)
{
    startAndHold();
    refresh();
    EXPECT_EQ(provider->statusCalls(), 1);
    EXPECT_TRUE(cycle->isRefreshing());
    provider->release();
    ASSERT_TRUE(settle());
    EXPECT_THAT(steps, ElementsAre("begin", "start octo", "accept 1"));
}

TEST_F(RefreshCycleTest, takesThePlaceOfARunningOneOnceThatHasEnded)
{
    startAndHold();
    cycle->start();
    ASSERT_TRUE(eventually([&] { return provider->cancelled() == 1; }));
    ASSERT_TRUE(settle());
    clock->advance(50ms);
    ASSERT_TRUE(eventually([&] { return provider->waiting() == 1; }));
    provider->release();
    ASSERT_TRUE(settle());
    EXPECT_THAT(steps, ElementsAre("begin", "start octo", "begin", "start octo", "accept 1"));
}

TEST_F(RefreshCycleTest, waitsForTheDelayOfTheLastOneThatIsScheduled)
{
    cycle->schedule(250ms);
    clock->advance(200ms);
    cycle->schedule(250ms);
    clock->advance(200ms);
    EXPECT_EQ(provider->statusCalls(), 0);
    clock->advance(50ms);
    ASSERT_TRUE(eventually([&] { return cycle->lastEnd() == RefreshEnd::fresh; }));
    EXPECT_EQ(provider->statusCalls(), 1);
}

TEST_F(RefreshCycleTest, callsNothingOnceItIsStoppedOrGone)
{
    startAndHold();
    cycle->stop();
    ASSERT_TRUE(eventually([&] { return provider->cancelled() == 1; }));
    ASSERT_TRUE(settle());
    startAndHold();
    cycle.reset();
    ASSERT_TRUE(eventually([&] { return provider->cancelled() == 2; }));
    processEvents();
    EXPECT_THAT(steps, ElementsAre("begin", "start octo", "begin", "start octo"));
}

}  // namespace

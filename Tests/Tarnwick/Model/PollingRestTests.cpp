#include "Tarnwick/Model/PollingRest.h"

#include "Fakes/FakeClock.h"

namespace {

using namespace TestSupport;

class PollingRestTest : public testing::Test {
protected:
    PollingRestTest()
    {
        QObject::connect(&rest, &PollingRest::restingQuotaChanged, &rest, [this] { ++changes; });
    }

    Quota quota(std::int64_t remaining, std::chrono::seconds untilReset) const
    {
        return {5000, remaining, clock->now() + untilReset};
    }

    std::shared_ptr<FakeClock> clock = std::make_shared<FakeClock>();
    PollingRest rest{clock};
    int changes = 0;
};

TEST(PollingRest, aTenthIsWhatIsKept)
{
    EXPECT_FALSE(Tarnwick::isNearlyUsedUp({5000, 500, {}}));
    EXPECT_TRUE(Tarnwick::isNearlyUsedUp({5000, 499, {}}));
    EXPECT_TRUE(Tarnwick::isNearlyUsedUp({5001, 500, {}}));
    EXPECT_TRUE(Tarnwick::isNearlyUsedUp({60, 0, {}}));
    EXPECT_FALSE(Tarnwick::isNearlyUsedUp({0, 0, {}}));
}

TEST(PollingRest, doublesFromOneMinuteToHalfAnHour)
{
    std::vector<int> minutes;
    for (int times = 1; times <= 7; ++times) {
        minutes.push_back(static_cast<int>(Tarnwick::restAfterRefusals(times).count()));
    }
    EXPECT_THAT(minutes, ElementsAre(1, 2, 4, 8, 16, 30, 30));
    EXPECT_EQ(Tarnwick::restAfterRefusals(1000), 30min);
}

TEST_F(PollingRestTest, doesNotRestAtFirstNorWithEnoughLeft)
{
    EXPECT_EQ(rest.remaining(), 0ms);
    EXPECT_EQ(rest.quota(), std::nullopt);
    rest.setQuota(quota(500, 10min));
    EXPECT_EQ(rest.remaining(), 0ms);
    EXPECT_EQ(rest.quota()->remaining, 500);
    EXPECT_EQ(rest.restingQuota(), std::nullopt);
    EXPECT_EQ(changes, 0);
}

TEST_F(PollingRestTest, restsUntilTheQuotaIsFullAgainAndSaysSo)
{
    rest.setQuota(quota(312, 10min));
    EXPECT_EQ(rest.remaining(), 10min);
    EXPECT_EQ(rest.restingQuota()->remaining, 312);
    EXPECT_EQ(changes, 1);
    clock->advance(10min - 1ms);
    EXPECT_EQ(rest.remaining(), 1ms);
    EXPECT_EQ(changes, 1);
    clock->advance(1ms);
    EXPECT_EQ(rest.remaining(), 0ms);
    EXPECT_EQ(rest.restingQuota(), std::nullopt);
    EXPECT_EQ(changes, 2);
    EXPECT_EQ(rest.quota()->remaining, 312);
}

TEST_F(PollingRestTest, endsWhenMoreIsLeft)
{
    rest.setQuota(quota(312, 10min));
    rest.setQuota(quota(4000, 10min));
    EXPECT_EQ(rest.remaining(), 0ms);
    EXPECT_EQ(rest.restingQuota(), std::nullopt);
}

TEST_F(PollingRestTest, restsAnHourAtMostWhateverTheClockSays)
{
    rest.setQuota(quota(0, 24h));
    EXPECT_EQ(rest.remaining(), 1h);
    clock->set(-24h);
    clock->advance(1h);
    EXPECT_EQ(rest.remaining(), 0ms);
    rest.setQuota(quota(0, -1min));
    EXPECT_EQ(rest.remaining(), 0ms);
    EXPECT_EQ(rest.restingQuota(), std::nullopt);
}

TEST_F(PollingRestTest, restsLongerWithEachRefusalInARow)
{
    rest.refused();
    EXPECT_EQ(rest.remaining(), 1min);
    clock->advance(5min);
    rest.refused();
    EXPECT_EQ(rest.remaining(), 2min);
    rest.refused();
    EXPECT_EQ(rest.remaining(), 4min);
    EXPECT_EQ(rest.restingQuota(), std::nullopt);
    rest.granted();
    EXPECT_EQ(rest.remaining(), 0ms);
    rest.refused();
    EXPECT_EQ(rest.remaining(), 1min);
}

TEST_F(PollingRestTest, theLongerRestCounts)
{
    rest.setQuota(quota(312, 10min));
    rest.refused();
    EXPECT_EQ(rest.remaining(), 10min);
    rest.granted();
    EXPECT_EQ(rest.remaining(), 10min);
}

}  // namespace

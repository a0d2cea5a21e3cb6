#include "TarnwickDirect/SoftwareUpdate/DailySchedule.h"

#include "Fakes/FakeClock.h"
#include "Fakes/MemoryDefaultsStore.h"

namespace {

using namespace TarnwickDirect;
using namespace TestSupport;

class DailyScheduleTest : public testing::Test {
protected:
    void start(std::optional<std::chrono::seconds> sinceLastCheck)
    {
        if (sinceLastCheck) {
            Tarnwick::writeDate(*defaults, "updates.lastCheck", clock->now() - *sinceLastCheck);
        }
        schedule = std::make_unique<DailySchedule>(defaults, clock, [this] { ++checks; });
    }

    std::shared_ptr<MemoryDefaultsStore> defaults = std::make_shared<MemoryDefaultsStore>();
    std::shared_ptr<FakeClock> clock = std::make_shared<FakeClock>();
    int checks = 0;
    std::unique_ptr<DailySchedule> schedule;
};

TEST_F(DailyScheduleTest, aCheckIsDueADayAfterTheLastOneAndSleepsInBetween)
{
    start(2h);
    clock->advance(1min);
    EXPECT_THAT(clock->sleepers(), ElementsAre(22h - 1min));
    clock->advance(22h - 1min - 1s);
    EXPECT_EQ(checks, 0);
    for (int day = 1; day <= 3; ++day) {
        ASSERT_EQ(clock->sleepers().size(), 1U);
        clock->advance(clock->sleepers()[0]);
        EXPECT_EQ(checks, day);
        EXPECT_THAT(clock->sleepers(), ElementsAre(24h));
    }
    EXPECT_EQ(Tarnwick::readDate(*defaults, "updates.lastCheck"), clock->now());
}

TEST_F(DailyScheduleTest, anOverdueCheckComesAMinuteAfterTheStart)
{
    for (const std::optional<std::chrono::seconds> sinceLastCheck :
         {std::optional<std::chrono::seconds>{}, std::optional<std::chrono::seconds>{48h}}) {
        checks = 0;
        start(sinceLastCheck);
        clock->advance(1min - 1s);
        EXPECT_EQ(checks, 0);
        clock->advance(1s);
        EXPECT_EQ(checks, 1);
    }
}

TEST_F(DailyScheduleTest, aLastCheckThatIsStillToComeDoesNotCount)
{
    start(-48h);
    clock->advance(1min);
    EXPECT_EQ(checks, 1);
}

TEST_F(DailyScheduleTest, aCheckOfTheUserCounts)
{
    start(2h);
    clock->advance(1min);
    clock->advance(10h);
    schedule->noteCheck();
    clock->advance(12h);
    EXPECT_EQ(checks, 0);
    EXPECT_THAT(clock->sleepers(), ElementsAre(12h));
}

}  // namespace

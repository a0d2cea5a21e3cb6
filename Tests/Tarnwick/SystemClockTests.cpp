#include "Tarnwick/Async/SystemClock.h"

#include "Fakes/EventLoop.h"
#include "Support/BootTimers.h"

#include <unistd.h>

namespace {

using namespace TestSupport;

TEST(SystemClock, wakesAfterItsTime)
{
    SystemClock clock;
    const auto start = std::chrono::steady_clock::now();
    const auto sleep = clock.sleep(20ms, {});
    EXPECT_FALSE(sleep.isFinished());
    ASSERT_TRUE(eventually([&] { return sleep.isFinished(); }));
    EXPECT_GE(std::chrono::steady_clock::now() - start, 18ms);
}

TEST(SystemClock, wakesAtOnceWhenItIsStopped)
{
    SystemClock clock;
    std::stop_source source;
    const auto sleep = clock.sleep(1h, source.get_token());
    EXPECT_FALSE(sleep.isFinished());
    source.request_stop();
    EXPECT_TRUE(sleep.isFinished());
    processEvents();
}

TEST(SystemClock, doesNotFallAsleepOnceItIsStopped)
{
    SystemClock clock;
    std::stop_source source;
    source.request_stop();
    EXPECT_TRUE(clock.sleep(1h, source.get_token()).isFinished());
    processEvents();
}

TEST(SystemClock, sleepsByAClockThatCountsWhileTheMachineSleeps)
{
    SystemClock clock;
    const auto timers = [] { return secondsOfBootTimers(::getpid()); };
    EXPECT_THAT(timers(), IsEmpty());
    std::stop_source source;
    const auto sleep = clock.sleep(1h, source.get_token());
    EXPECT_THAT(timers(), ElementsAre(3'599));
    source.request_stop();
    EXPECT_TRUE(eventually([&] { return timers().empty(); }));
}

TEST(SystemClock, neverGoesBack)
{
    const SystemClock clock;
    const auto before = clock.elapsed();
    EXPECT_GT(before, 0ms);
    EXPECT_GE(clock.elapsed(), before);
    EXPECT_GE(clock.asleep(), 0ms);
}

TEST(SystemClock, tellsTheTimeInWholeSeconds)
{
    const auto before = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const auto now = SystemClock().now();
    EXPECT_GE(now, before);
    EXPECT_LE(now, std::chrono::system_clock::now());
}

}  // namespace

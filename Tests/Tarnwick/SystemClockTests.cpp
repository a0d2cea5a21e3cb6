#include "Tarnwick/Async/SystemClock.h"

#include "Fakes/EventLoop.h"
#include "Support/LeakCheck.h"

#include <ctime>
#include <fstream>
#include <iterator>

#include <gmock/gmock.h>

namespace {

using namespace std::chrono_literals;
using TestSupport::eventually;
using TestSupport::processEvents;

TEST(SystemClock, wakesAfterItsTime)
{
    Tarnwick::SystemClock clock;
    const auto start = std::chrono::steady_clock::now();
    const auto sleep = clock.sleep(20ms, {});
    EXPECT_FALSE(sleep.isFinished());
    ASSERT_TRUE(eventually([&] { return sleep.isFinished(); }));
    EXPECT_GE(std::chrono::steady_clock::now() - start, 18ms);
}

TEST(SystemClock, wakesAtOnceWhenItIsStopped)
{
    Tarnwick::SystemClock clock;
    std::stop_source source;
    const auto sleep = clock.sleep(1h, source.get_token());
    EXPECT_FALSE(sleep.isFinished());
    source.request_stop();
    EXPECT_TRUE(sleep.isFinished());
    processEvents();
}

TEST(SystemClock, doesNotFallAsleepOnceItIsStopped)
{
    Tarnwick::SystemClock clock;
    std::stop_source source;
    source.request_stop();
    EXPECT_TRUE(clock.sleep(1h, source.get_token()).isFinished());
    processEvents();
}

/// Whether a descriptor of this process is a timer that counts on while the machine sleeps.
bool hasTimerThatNeverSleeps()
{
    for (const auto& [number, name] : TestSupport::openDescriptors()) {
        std::ifstream file("/proc/self/fdinfo/" + std::to_string(number));
        const std::string text{std::istreambuf_iterator<char>(file), {}};
        if (text.find("clockid: " + std::to_string(CLOCK_BOOTTIME) + "\n") != std::string::npos) {
            return true;
        }
    }
    return false;
}

TEST(SystemClock, sleepsByAClockThatCountsWhileTheMachineSleeps)
{
    Tarnwick::SystemClock clock;
    EXPECT_FALSE(hasTimerThatNeverSleeps());
    std::stop_source source;
    const auto sleep = clock.sleep(1h, source.get_token());
    EXPECT_TRUE(hasTimerThatNeverSleeps());
    source.request_stop();
    EXPECT_TRUE(eventually([] { return !hasTimerThatNeverSleeps(); }));
}

TEST(SystemClock, neverGoesBack)
{
    const Tarnwick::SystemClock clock;
    const auto before = clock.elapsed();
    EXPECT_GT(before, 0ms);
    EXPECT_GE(clock.elapsed(), before);
    EXPECT_GE(clock.asleep(), 0ms);
}

TEST(SystemClock, tellsTheTimeInWholeSeconds)
{
    const auto before = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
    const auto now = Tarnwick::SystemClock().now();
    EXPECT_GE(now, before);
    EXPECT_LE(now, std::chrono::system_clock::now());
}

}  // namespace

#include "GitHubProvider/Process/ProcessCommandRunner.h"
#include "Helper.h"
#include "HelperChannel.h"
#include "PullRequestKit/Errors.h"
#include "Support/BootTimers.h"
#include "Support/LeakCheck.h"

#include <csignal>
#include <ctime>
#include <fstream>
#include <random>
#include <thread>

namespace {

using namespace GitHub;
using namespace TestSupport;
using Clock = std::chrono::steady_clock;

/// What a test allows for anything that should come soon.
constexpr auto soon = 20s;

const auto throwsTimeOut = ThrowsMessage<ProviderError>("GitHub CLI request timed out.");

class Ending : public testing::Test {
protected:
    Clock::duration elapsed() const { return Clock::now() - _start; }

    HelperChannel channel;

private:
    Clock::time_point _start = Clock::now();
};

CommandResult runHelperFor(
    std::chrono::nanoseconds timeout, const std::vector<std::string>& arguments)
{
    return ProcessCommandRunner(timeout).run(helperPath(), arguments, {});
}

TEST_F(Ending, comesWithATimeOutWhenACommandTakesLongerThanItsLimit)
{
    EXPECT_THAT([] { runHelperFor(250ms, {"wait-blindly"}); }, throwsTimeOut);
    EXPECT_GE(elapsed(), 250ms);
    EXPECT_LT(elapsed(), soon);
    EXPECT_FALSE(hasChildren());
}

TEST_F(Ending, comesAtOnceWhenThereIsNoTimeAtAll)
{
    EXPECT_THAT([] { runHelperFor(0ns, {"wait-blindly"}); }, throwsTimeOut);
    EXPECT_THAT([] { runHelperFor(-1s, {"wait-blindly"}); }, throwsTimeOut);
    EXPECT_LT(elapsed(), soon);
}

TEST_F(Ending, needsNoTimeLimitThatTheClockCanReach)
{
    EXPECT_EQ(runHelperFor(std::chrono::nanoseconds::max(), {"exit", "4"}).status, 4);
}

TEST_F(Ending, comesWithACancellationWhenARunningCommandIsStopped)
{
    BackgroundRun run({"wait", channel.folder()});
    const pid_t child = std::stoi(channel.waitForLine());
    run.stop();
    EXPECT_THAT([&] { run.result(); }, Throws<CancellationError>());
    EXPECT_EQ(::kill(child, 0), -1);
    EXPECT_EQ(errno, ESRCH);
    EXPECT_LT(elapsed(), soon);
}

TEST_F(Ending, comesBeforeTheLaunchWhenTheCommandIsStoppedByThen)
{
    std::stop_source source;
    source.request_stop();
    EXPECT_THAT(
        [&] { ProcessCommandRunner(50s).run("/missing/program", {}, source.get_token()); },
        Throws<CancellationError>());
}

TEST_F(Ending, waitsForAStoppedChildThatTakesNoNotice)
{
    BackgroundRun run({"survive-termination", channel.folder()});
    EXPECT_EQ(channel.waitForLine(), "ready");
    run.stop();
    EXPECT_EQ(channel.waitForLine(), "asked to end");
    EXPECT_FALSE(run.hasEnded());
    EXPECT_TRUE(hasChildren());
    channel.release();
    EXPECT_THAT([&] { run.result(); }, Throws<CancellationError>());
    EXPECT_FALSE(hasChildren());
}

TEST_F(Ending, waitsForAChildOutOfTimeThatTakesNoNoticeAndStaysATimeOutWhenStoppedThen)
{
    BackgroundRun run({"survive-termination", channel.folder()}, 1500ms);
    EXPECT_EQ(channel.waitForLine(), "ready");
    EXPECT_EQ(channel.waitForLine(), "asked to end");
    EXPECT_FALSE(run.hasEnded());
    run.stop();
    EXPECT_EQ(channel.waitForLine(), "asked to end");
    channel.release();
    EXPECT_THAT([&] { run.result(); }, throwsTimeOut);
    EXPECT_FALSE(hasChildren());
}

TEST_F(Ending, letsAChildThatIsAskedToEndPrintAllItHas)
{
    BackgroundRun run({"print-through-termination", channel.folder(), "1000000"});
    EXPECT_EQ(channel.waitForLine(), "ready");
    run.stop();
    EXPECT_EQ(channel.waitForLine(), "asked to end");
    EXPECT_EQ(channel.waitForLine(), "printed all");
    EXPECT_THAT([&] { run.result(); }, Throws<CancellationError>());
}

TEST_F(Ending, waitsForAChildThatClosesItsStreamsAndLivesOn)
{
    BackgroundRun run({"close-streams", channel.folder()});
    EXPECT_EQ(channel.waitForLine(), "closed");
    EXPECT_FALSE(run.hasEnded());
    channel.release();
    EXPECT_EQ(run.result(), (CommandResult{7, "", ""}));
}

TEST_F(Ending, comesWithATimeOutForAChildThatClosesItsStreamsAndLivesOn)
{
    EXPECT_THAT([&] { runHelperFor(1s, {"close-streams", channel.folder()}); }, throwsTimeOut);
    EXPECT_LT(elapsed(), soon);
    EXPECT_FALSE(hasChildren());
}

TEST_F(Ending, waitsForWhatAGrandchildPrintsWithinTheTimeLimit)
{
    BackgroundRun run({"leave-grandchild", channel.folder()});
    EXPECT_EQ(channel.waitForLine(), "grandchild ready");
    EXPECT_FALSE(run.hasEnded());
    channel.release();
    EXPECT_EQ(run.result(), (CommandResult{5, "late", ""}));
    channel.waitForLastHelper();
}

TEST_F(Ending, comesWithATimeOutWhileAGrandchildHoldsThePipesAndEndsTheGrandchild)
{
    for (const char* behaviour : {"leave-grandchild", "wait-beside-grandchild"}) {
        HelperChannel grandchild;
        BackgroundRun run({behaviour, grandchild.folder()}, 3s);
        EXPECT_EQ(grandchild.waitForLine(), "grandchild ready");
        EXPECT_THAT([&] { run.result(); }, throwsTimeOut);
        EXPECT_FALSE(hasChildren());
        grandchild.waitForLastHelper();
    }
    EXPECT_LT(elapsed(), soon);
}

TEST_F(Ending, comesWithACancellationWhileAGrandchildHoldsThePipesAndEndsTheGrandchild)
{
    for (const char* behaviour : {"leave-grandchild", "wait-beside-grandchild"}) {
        HelperChannel grandchild;
        BackgroundRun run({behaviour, grandchild.folder()});
        EXPECT_EQ(grandchild.waitForLine(), "grandchild ready");
        run.stop();
        EXPECT_THAT([&] { run.result(); }, Throws<CancellationError>());
        EXPECT_FALSE(hasChildren());
        grandchild.waitForLastHelper();
    }
    EXPECT_LT(elapsed(), soon);
}

TEST_F(Ending, leavesTheGrandchildrenOfALauncherAlone)
{
    const ProcessCommandRunner launching(2s, {.reach = ChildSettings::Reach::program});
    EXPECT_THAT(
        [&] { launching.run(helperPath(), {"wait-beside-grandchild", channel.folder()}, {}); },
        throwsTimeOut);
    EXPECT_FALSE(hasChildren());
    EXPECT_EQ(channel.waitForLine(), "grandchild ready");
    channel.release();
    channel.waitForLastHelper();
}

char stateOf(pid_t process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string number;
    std::string name;
    char state = 0;
    file >> number >> name >> state;
    return state;
}

TEST_F(Ending, reachesAChildThatHasStoppedItself)
{
    BackgroundRun run({"stop", channel.folder(), std::to_string(SIGSTOP)});
    const pid_t child = std::stoi(channel.waitForLine());
    while (stateOf(child) != 'T' && elapsed() < soon) {
        std::this_thread::yield();
    }
    run.stop();
    EXPECT_THAT([&] { run.result(); }, Throws<CancellationError>());
    EXPECT_EQ(::kill(child, 0), -1);
    EXPECT_LT(elapsed(), soon);
}

TEST_F(Ending, comesWithATimeOutForAChildThatHasStoppedItself)
{
    BackgroundRun run({"stop", channel.folder(), std::to_string(SIGSTOP)}, 1s);
    EXPECT_THAT([&] { run.result(); }, throwsTimeOut);
    EXPECT_LT(elapsed(), soon);
    EXPECT_FALSE(hasChildren());
}

TEST_F(Ending, isNotHeldUpByTheSignalsOfATerminal)
{
    for (const int signal : {SIGTTIN, SIGTTOU, SIGTSTP}) {
        HelperChannel helper;
        BackgroundRun run({"stop", helper.folder(), std::to_string(signal)});
        helper.waitForLine();
        EXPECT_EQ(helper.waitForLine(), "went on");
        run.stop();
        EXPECT_THAT([&] { run.result(); }, Throws<CancellationError>());
    }
}

TEST_F(Ending, comesAboutWhenTheTimeIsUp)
{
    EXPECT_THAT([] { runHelperFor(3s, {"wait-blindly"}); }, throwsTimeOut);
    EXPECT_GE(elapsed(), 3s);
    EXPECT_LT(elapsed(), 5500ms);
}

TEST_F(Ending, isTimedByAClockThatCountsWhileTheMachineSleeps)
{
    BackgroundRun run({"wait", channel.folder()}, 20s);
    channel.waitForLine();
    EXPECT_THAT(secondsOfBootTimers(::getpid()), ElementsAre(AnyOf(18, 19)));
    channel.release();
    EXPECT_EQ(run.result().status, 0);
}

TEST_F(Ending, refusesMoreThan64MiBOnEitherStreamByDefault)
{
    const std::string tooMany = std::to_string((std::size_t{64} << 20) + 1);
    const auto isRefused = ThrowsMessage<ProviderError>(
        "The output of ProcessHelper was refused because it is larger than 64 MiB.");
    EXPECT_THAT([&] { runHelper({"print", tooMany, "0"}); }, isRefused);
    EXPECT_THAT([&] { runHelper({"print", "0", tooMany}); }, isRefused);
    EXPECT_FALSE(hasChildren());
}

TEST_F(Ending, takesAsMuchAsTheLimitOnEachStream)
{
    const ProcessCommandRunner runner(50s, 200'000);
    const CommandResult result = runner.run(helperPath(), {"print", "200000", "200000"}, {});
    EXPECT_EQ(result.standardOutput.size(), 200'000U);
    EXPECT_EQ(result.standardError.size(), 200'000U);
}

TEST_F(Ending, asksAChildThatPrintsTooMuchToEndAndWaitsForIt)
{
    const ProcessCommandRunner runner(50s, 200'000);
    EXPECT_THAT(
        [&] {
            runner.run(
                helperPath(), {"print-through-termination", channel.folder(), "1000000"}, {});
        },
        ThrowsMessage<ProviderError>(
            "The output of ProcessHelper was refused because it is larger than 200000 bytes."));
    EXPECT_EQ(channel.waitForLine(), "ready");
    EXPECT_EQ(channel.waitForLine(), "asked to end");
    EXPECT_EQ(channel.waitForLine(), "printed all");
    EXPECT_FALSE(hasChildren());
}

std::chrono::nanoseconds threadProcessorTime()
{
    timespec time{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds{time.tv_sec} + std::chrono::nanoseconds{time.tv_nsec};
}

TEST_F(Ending, isAwaitedWithoutTheProcessor)
{
    const auto before = threadProcessorTime();
    EXPECT_THAT([] { runHelperFor(500ms, {"wait-blindly"}); }, throwsTimeOut);
    EXPECT_THAT([&] { runHelperFor(1s, {"close-streams", channel.folder()}); }, throwsTimeOut);
    HelperChannel grandchild;
    EXPECT_THAT(
        [&] { runHelperFor(1s, {"leave-grandchild", grandchild.folder()}); }, throwsTimeOut);
    EXPECT_LT(threadProcessorTime() - before, 250ms);
    grandchild.release();
    grandchild.waitForLastHelper();
}

/// Runs a program that ends by itself or one that does not, and stops it after `delay`.
void runAndStop(bool endsByItself, std::chrono::nanoseconds delay)
{
    BackgroundRun run({endsByItself ? "exit" : "wait-blindly", "6"});
    const auto moment = Clock::now() + delay;
    while (Clock::now() < moment) {
        std::this_thread::yield();
    }
    run.stop();
    try {
        EXPECT_EQ(run.result(), (CommandResult{6, "", ""}));
        EXPECT_TRUE(endsByItself);
    } catch (const CancellationError&) {
        SUCCEED();
    }
}

TEST_F(Ending, isCleanWhenManyThreadsStopTheirCommandsAtRandomMoments)
{
    std::vector<std::thread> threads;
    for (unsigned seed = 0; seed < 8; ++seed) {
        threads.emplace_back([seed] {
            std::minstd_rand random(seed + 1);
            std::uniform_int_distribution<int> microseconds(0, 3000);
            for (int round = 0; round < 40; ++round) {
                runAndStop(round % 2 == 0, std::chrono::microseconds{microseconds(random)});
            }
        });
    }
    for (std::thread& thread : threads) {
        thread.join();
    }
    EXPECT_FALSE(hasChildren());
}

}  // namespace

#include "GitHubProvider/Process/ProcessController.h"

#include <atomic>
#include <latch>
#include <thread>

#include <gmock/gmock.h>

namespace {

using namespace GitHub;

/// Counts the requests to end; goes on running after them unless told otherwise.
class CountingProcess : public TerminableProcess {
public:
    explicit CountingProcess(bool isRunning = true)
        : _isRunning(isRunning)
    {}

    bool isRunning() const override { return _isRunning; }

    void terminate() const override { ++_terminations; }

    int terminations() const { return _terminations; }

private:
    bool _isRunning;
    mutable std::atomic<int> _terminations = 0;
};

/// Comes back to the controller from within its functions, which would never end under the lock.
class NestingProcess : public TerminableProcess {
public:
    explicit NestingProcess(const ProcessController& controller)
        : _controller(controller)
    {}

    bool isRunning() const override
    {
        _sawTimeOut = _controller.hasTimedOut();
        return true;
    }

    void terminate() const override { _sawTimeOut = _controller.hasTimedOut(); }

    bool sawTimeOut() const { return _sawTimeOut; }

private:
    const ProcessController& _controller;
    mutable bool _sawTimeOut = false;
};

TEST(ProcessController, leavesARegisteredProcessAlone)
{
    const auto process = std::make_shared<CountingProcess>();
    ProcessController controller;
    controller.registerProcess(process);
    EXPECT_EQ(process->terminations(), 0);
    EXPECT_FALSE(controller.hasTimedOut());
}

TEST(ProcessController, endsTheRegisteredProcessWhenCancelled)
{
    const auto process = std::make_shared<CountingProcess>();
    ProcessController controller;
    controller.registerProcess(process);
    controller.cancel();
    EXPECT_EQ(process->terminations(), 1);
    EXPECT_FALSE(controller.hasTimedOut());
}

TEST(ProcessController, endsAProcessThatIsRegisteredAfterTheCancellation)
{
    const auto process = std::make_shared<CountingProcess>();
    ProcessController controller;
    controller.cancel();
    controller.registerProcess(process);
    EXPECT_EQ(process->terminations(), 1);
}

TEST(ProcessController, endsTheProcessAndNotesItWhenTimeIsUp)
{
    const auto process = std::make_shared<CountingProcess>();
    ProcessController controller;
    controller.registerProcess(process);
    controller.timeOut();
    EXPECT_EQ(process->terminations(), 1);
    EXPECT_TRUE(controller.hasTimedOut());
}

TEST(ProcessController, endsAProcessThatIsRegisteredAfterTimeIsUp)
{
    const auto process = std::make_shared<CountingProcess>();
    ProcessController controller;
    controller.timeOut();
    controller.registerProcess(process);
    EXPECT_EQ(process->terminations(), 1);
}

TEST(ProcessController, asksNoEndedProcessToEnd)
{
    const auto process = std::make_shared<CountingProcess>(false);
    ProcessController controller;
    controller.registerProcess(process);
    controller.cancel();
    controller.timeOut();
    EXPECT_EQ(process->terminations(), 0);

    ProcessController cancelledBefore;
    cancelledBefore.cancel();
    cancelledBefore.registerProcess(process);
    EXPECT_EQ(process->terminations(), 0);
}

TEST(ProcessController, keepsTheTimeOutAfterACancellation)
{
    ProcessController controller;
    controller.timeOut();
    controller.cancel();
    EXPECT_TRUE(controller.hasTimedOut());
}

TEST(ProcessController, asksAndEndsTheProcessOutsideItsLock)
{
    ProcessController controller;
    const auto process = std::make_shared<NestingProcess>(controller);
    controller.registerProcess(process);
    controller.timeOut();
    EXPECT_TRUE(process->sawTimeOut());

    controller.registerProcess(process);  // Ends it at once, because the controller is cancelled.
    EXPECT_TRUE(process->sawTimeOut());
}

TEST(ProcessController, endsTheProcessOnceWhicheverOfTwoThreadsComesFirst)
{
    for (int round = 0; round < 300; ++round) {
        const auto process = std::make_shared<CountingProcess>();
        ProcessController controller;
        std::latch start(2);
        std::thread canceller([&] {
            start.arrive_and_wait();
            controller.cancel();
        });
        start.arrive_and_wait();
        controller.registerProcess(process);
        canceller.join();
        ASSERT_EQ(process->terminations(), 1);
    }
}

}  // namespace

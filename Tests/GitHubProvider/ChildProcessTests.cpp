#include "GitHubProvider/Process/ChildProcess.h"

#include "Helper.h"

#include <csignal>

#include <gmock/gmock.h>
#include <sys/resource.h>

namespace {

using GitHub::ChildProcess;

/// While it lives, `poll` fails for as little as one descriptor.
class NothingCanBePolled {
public:
    NothingCanBePolled()
    {
        ::getrlimit(RLIMIT_NOFILE, &_before);
        const rlimit none{0, _before.rlim_max};
        ::setrlimit(RLIMIT_NOFILE, &none);
    }

    NothingCanBePolled(const NothingCanBePolled&) = delete;
    NothingCanBePolled& operator=(const NothingCanBePolled&) = delete;

    ~NothingCanBePolled() { ::setrlimit(RLIMIT_NOFILE, &_before); }

private:
    rlimit _before{};
};

TEST(ChildProcess, isRunningAndCanBeEndedWhereNothingCanBePolled)
{
    ChildProcess child(helperPath(), {"wait-blindly"});
    const NothingCanBePolled limit;
    EXPECT_TRUE(child.isRunning());
    child.terminate();
    EXPECT_EQ(child.wait(), 128 + SIGTERM);
    EXPECT_FALSE(child.isRunning());
}

TEST(ChildProcess, isEndedOnceItWasWaitedForWhoeverStillAsksItTo)
{
    ChildProcess child(helperPath(), {"exit", "3"});
    EXPECT_EQ(child.wait(), 3);
    EXPECT_FALSE(child.isRunning());
    child.terminate();
}

}  // namespace

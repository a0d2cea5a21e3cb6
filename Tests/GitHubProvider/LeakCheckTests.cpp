#include "Support/LeakCheck.h"

#include "GitHubProvider/Process/FileDescriptor.h"

#include <gtest/gtest-spi.h>

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using GitHub::FileDescriptor;
using TestSupport::LeakCheck;

const auto* const leakCheck = testing::AddGlobalTestEnvironment(new LeakCheck);

TEST(LeakCheck, noticesADescriptorThatIsLeft)
{
    LeakCheck check;
    check.SetUp();
    {
        const FileDescriptor left(::open("/", O_RDONLY | O_CLOEXEC));
        EXPECT_NONFATAL_FAILURE(check.TearDown(), "descriptors have leaked");
    }
    check.TearDown();
}

TEST(LeakCheck, noticesAnEndedChildThatNobodyWaitedFor)
{
    LeakCheck check;
    check.SetUp();
    const pid_t child = ::fork();
    if (child == 0) {
        ::_exit(0);
    }
    EXPECT_NONFATAL_FAILURE(check.TearDown(), "a child process is left");
    EXPECT_EQ(::waitpid(child, nullptr, 0), child);
    check.TearDown();
}

}  // namespace

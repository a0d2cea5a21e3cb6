#include "Support/BootTimers.h"
#include "Support/LeakCheck.h"
#include "TarnwickTest.h"

#include <csignal>

#include <poll.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace TestSupport;

/// Ends a program in the middle of a request.
class Signals
    : public TarnwickTest
    , public testing::WithParamInterface<int> {
protected:
    /// Starts `tarnwick list` in a process group of its own.
    pid_t startList() const
    {
        std::vector<std::string> variables;
        for (const auto& [name, value] : environment()) {
            variables.push_back(name + "=" + value);
        }
        std::vector<char*> pointers;
        for (std::string& variable : variables) {
            pointers.push_back(variable.data());
        }
        pointers.push_back(nullptr);
        std::string program = TARNWICK_PROGRAM;
        std::string list = "list";
        char* const arguments[] = {program.data(), list.data(), nullptr};
        const pid_t child = ::fork();
        if (child == 0) {
            ::setpgid(0, 0);
            ::execve(program.c_str(), arguments, pointers.data());
            ::_exit(127);
        }
        ::setpgid(child, child);
        return child;
    }

    /// Waits until the server got a search, which it answers only after a minute.
    bool waitForSearch()
    {
        for (int turn = 0; turn < 2'000; ++turn) {
            for (const auto& recorded : server().requests()) {
                if (recorded.kind == SampleGitHub::RequestKind::search) {
                    return true;
                }
            }
            ::poll(nullptr, 0, 10);
        }
        return false;
    }
};

TEST_P(Signals, endItAtOnceAndLeaveNoChildBehind)
{
    serve("everyday");
    select("harbourlight/tide-tables");
    setFault("delay=60000@search");
    // What the program leaves behind becomes a child of this one.
    ASSERT_EQ(::prctl(PR_SET_CHILD_SUBREAPER, 1), 0);
    const pid_t child = startList();
    ASSERT_GT(child, 0);
    ASSERT_TRUE(waitForSearch());
    // The program alone gets the signal; its children end because it ends them.
    ASSERT_EQ(::kill(child, GetParam()), 0);
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), GetParam());
    EXPECT_FALSE(hasChildren());
    EXPECT_FALSE(std::filesystem::exists(cacheFile()));
}

TEST_P(Signals, comeWhileTheRequestHasALimitOf30Seconds)
{
    serve("everyday");
    select("harbourlight/tide-tables");
    setFault("delay=60000@search");
    const pid_t child = startList();
    ASSERT_TRUE(waitForSearch());
    EXPECT_THAT(secondsOfBootTimers(child), Contains(AllOf(Ge(15), Lt(30))));
    ASSERT_EQ(::kill(child, GetParam()), 0);
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
}

INSTANTIATE_TEST_SUITE_P(OfTheUser, Signals, testing::Values(SIGHUP, SIGINT, SIGTERM));

}  // namespace

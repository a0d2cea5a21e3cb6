#include "TarnwickDirect/Application/ExitGuard.h"

#include "Tarnwick/Async/Worker.h"

#include <QSemaphore>

#include <cstdlib>
#include <iostream>

#include <gmock/gmock.h>

namespace {

using TarnwickDirect::ExitGuard;
using testing::AllOf;
using testing::ExitedWithCode;
using testing::HasSubstr;
using testing::Not;

class ExitGuardTests : public testing::Test {
protected:
    ExitGuardTests() { GTEST_FLAG_SET(death_test_style, "threadsafe"); }
};

/// Exits while threads have work that they take only after static objects were destroyed.
void exitDuringWork()
{
    constexpr int works = 50;
    QSemaphore begin;
    const ExitGuard guard([&] {
        std::cerr << "stopped\n";
        begin.release(works);
    });
    for (int work = 0; work < works; ++work) {
        Tarnwick::runOnPool([&] { begin.acquire(); });
    }
    std::exit(3);
}

void exitAfterAnInnerGuard()
{
    const ExitGuard outer([] { std::cerr << "outer\n"; });
    {
        const ExitGuard inner([] { std::cerr << "inner\n"; });
    }
    std::exit(3);
}

void exitWithinAnInnerGuard()
{
    const ExitGuard outer([] { std::cerr << "outer\n"; });
    const ExitGuard inner([] { std::cerr << "inner\n"; });
    std::exit(3);
}

TEST_F(ExitGuardTests, threadsEndTheirWorkFirst)
{
    EXPECT_EXIT(exitDuringWork(), ExitedWithCode(3), HasSubstr("stopped"));
}

TEST_F(ExitGuardTests, theInnermostActs)
{
    EXPECT_EXIT(
        exitWithinAnInnerGuard(),
        ExitedWithCode(3),
        AllOf(HasSubstr("inner"), Not(HasSubstr("outer"))));
    EXPECT_EXIT(
        exitAfterAnInnerGuard(),
        ExitedWithCode(3),
        AllOf(HasSubstr("outer"), Not(HasSubstr("inner"))));
}

}  // namespace

#include "TarnwickTest.h"

namespace {

using namespace TestSupport;

/// The commands, whenever their worker threads are done.
class WorkerTiming
    : public TarnwickTest
    , public testing::WithParamInterface<const char*> {
protected:
    ProgramResult timed(const std::vector<std::string>& arguments) const
    {
        auto variables = environment();
        variables["TARNWICK_TEST_WORKERS"] = GetParam();
        // A command that waits for ever must fail this test, not hold it up.
        std::vector<std::string> command{"20", TARNWICK_TIMED_PROGRAM};
        command.insert(command.end(), arguments.begin(), arguments.end());
        return runProgram("timeout", command, variables, folder());
    }
};

TEST_P(WorkerTiming, theListIsPrintedWhole)
{
    serve("everyday");
    select("harbourlight/ferry-web, harbourlight/tide-tables");
    const ProgramResult result = timed({"list", "--json"});
    EXPECT_EQ(result.status, 0);
    const auto list = boost::json::parse(result.output).as_object();
    EXPECT_EQ(list.at("state"), "loaded");
    EXPECT_EQ(outline(list).size(), 14U);
}

TEST_P(WorkerTiming, aListWithoutALoginEnds)
{
    serve("signed-out");
    const ProgramResult result = timed({"list"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("gh auth login"));
}

TEST_P(WorkerTiming, aFailedListEnds)
{
    serve("everyday");
    select("harbourlight/tide-tables");
    setFault("server-error@search");
    const ProgramResult result = timed({"list"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("500"));
}

TEST_P(WorkerTiming, repositoriesAreListedAndSelected)
{
    serve("everyday");
    EXPECT_EQ(timed({"repositories", "select", "robin-k/dotfiles"}).status, 0);
    const ProgramResult result = timed({"repositories"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, HasSubstr("✓ robin-k/dotfiles "));
    EXPECT_THAT(result.errors, IsEmpty());
}

TEST_P(WorkerTiming, repositoriesThatCannotBeListedEndTheCommand)
{
    serve("everyday");
    setFault("server-error@repositories");
    const ProgramResult result = timed({"repositories"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("500"));
}

INSTANTIATE_TEST_SUITE_P(
    OfAnyKind, WorkerTiming, testing::Values("finished", "late"), [](const auto& parameter) {
        return std::string(parameter.param);
    });

}  // namespace

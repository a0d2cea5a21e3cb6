#include "TarnwickTest.h"

#include <csignal>

namespace {

using namespace TestSupport;

/// What the commands do with a standard output that is not as it should be.
class Output : public TarnwickTest {
protected:
    void SetUp() override
    {
        serve("everyday");
        select("harbourlight/tide-tables");
    }

    /// Runs a command line in a shell, in which "$0" is the program.
    ProgramResult shell(const std::string& commandLine) const
    {
        return runProgram("bash", {"-c", commandLine, TARNWICK_PROGRAM}, environment(), folder());
    }

    void expectWholeCache() const
    {
        const auto snapshot = boost::json::parse(readFile(cacheFile())).as_object();
        EXPECT_EQ(snapshot.at("pullRequests").as_array().size(), 5U);
    }
};

TEST_F(Output, onAFullDiskIsAFailure)
{
    for (const char* const command :
         {"list", "list --json", "repositories", "repositories --json", "--help", "--version"}) {
        const auto result = shell("\"$0\" " + std::string(command) + " >/dev/full");
        EXPECT_EQ(result.status, 1) << command;
        EXPECT_EQ(result.errors, "Cannot write to standard output (No space left on device).\n")
            << command;
    }
    expectWholeCache();
}

TEST_F(Output, thatIsClosedIsAFailureAndGoesIntoNoFile)
{
    const std::string settings = readFile(settingsFile());
    const auto result = shell("\"$0\" list --json >&-");
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "Cannot write to standard output (Bad file descriptor).\n");
    expectWholeCache();
    EXPECT_THAT(readFile(settingsFile()), HasSubstr(settings));
    EXPECT_EQ(shell("\"$0\" list --json <&- >&- 2>&-").status, 1);
    expectWholeCache();
    EXPECT_EQ(shell("\"$0\" repositories select --all <&- >&- 2>&-").status, 0);
    EXPECT_THAT(readFile(settingsFile()), HasSubstr("robin-k/dotfiles"));
}

TEST_F(Output, thatNobodyReadsEndsItQuietlyAndTheCacheIsWhole)
{
    const auto result = shell("\"$0\" list | true; exit ${PIPESTATUS[0]}");
    EXPECT_EQ(result.status, 128 + SIGPIPE);
    EXPECT_THAT(result.errors, IsEmpty());
    expectWholeCache();
    // Where the parent ignores the signal, as some do, it ends the same way.
    const auto ignoring = shell("trap '' PIPE; \"$0\" list | true; exit ${PIPESTATUS[0]}");
    EXPECT_EQ(ignoring.status, 128 + SIGPIPE);
    EXPECT_THAT(ignoring.errors, IsEmpty());
}

TEST_F(Output, isTheSameInEveryLocale)
{
    const std::string usual = tarnwick({"list"}).output;
    EXPECT_THAT(usual, HasSubstr("Cyclic branch dependency"));
    for (const char* const locale : {"C", "POSIX", "xx_XX.UTF-8", "en_US.ISO-8859-1"}) {
        const auto result = shell("LC_ALL=" + std::string(locale) + " \"$0\" list");
        EXPECT_EQ(result.status, 0) << locale;
        EXPECT_EQ(result.output, usual) << locale;
        EXPECT_THAT(result.errors, IsEmpty()) << locale;
    }
}

}  // namespace

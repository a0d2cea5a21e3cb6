#include "GitHubProvider/Process/ProcessCommandRunner.h"

#include "Helper.h"
#include "HelperChannel.h"
#include "Support/LeakCheck.h"

#include <cerrno>
#include <csignal>
#include <fstream>
#include <system_error>
#include <thread>

#include <fcntl.h>
#include <pthread.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

using namespace GitHub;
using namespace TestSupport;
using namespace std::string_literals;

constexpr std::size_t mebibyte = std::size_t{1} << 20;

/// Puts other descriptors in the place of standard ones, and back.
class StandardStreams {
public:
    StandardStreams()
    {
        for (int stream = 0; stream < 3; ++stream) {
            _saved[stream] = FileDescriptor(::fcntl(stream, F_DUPFD_CLOEXEC, 10));
        }
    }

    StandardStreams(const StandardStreams&) = delete;
    StandardStreams& operator=(const StandardStreams&) = delete;

    ~StandardStreams()
    {
        for (int stream = 0; stream < 3; ++stream) {
            ::dup2(_saved[stream].number(), stream);
        }
    }

private:
    FileDescriptor _saved[3];
};

std::vector<std::string> splitAfter(const std::string& text, char end)
{
    std::vector<std::string> pieces;
    for (std::size_t start = 0; start < text.size();) {
        const std::size_t stop = text.find(end, start);
        pieces.push_back(text.substr(start, stop - start));
        start = stop == std::string::npos ? text.size() : stop + 1;
    }
    return pieces;
}

TEST(ProcessCommandRunner, returnsBothOutputsWholeWhenTheyAreLargerThanThePipes)
{
    const CommandResult result =
        runHelper({"print", std::to_string(5 * mebibyte), std::to_string(3 * mebibyte + 1)});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(result.standardOutput == helperPattern(5 * mebibyte));
    EXPECT_TRUE(result.standardError == helperPattern(3 * mebibyte + 1));
}

TEST(ProcessCommandRunner, readsBothStreamsWhicheverIsFilledFirst)
{
    for (const char* behaviour : {"fill-output-first", "fill-error-first"}) {
        const CommandResult result = runHelper({behaviour, std::to_string(mebibyte)});
        EXPECT_EQ(result.status, 0) << behaviour;
        EXPECT_TRUE(result.standardOutput == helperPattern(mebibyte)) << behaviour;
        EXPECT_TRUE(result.standardError == helperPattern(mebibyte)) << behaviour;
    }
}

TEST(ProcessCommandRunner, yieldsANormalResultForACommandThatExitsWithStatus1)
{
    EXPECT_EQ(runHelper({"exit", "1"}), (CommandResult{1, "", ""}));
    EXPECT_EQ(runHelper({"exit", "255"}), (CommandResult{255, "", ""}));
}

TEST(ProcessCommandRunner, yieldsEmptyTextsForEmptyOutputOnEitherStream)
{
    EXPECT_EQ(runHelper({"print", "0", "0"}), (CommandResult{0, "", ""}));
    EXPECT_EQ(runHelper({"print", "2", "0"}), (CommandResult{0, std::string("\0\1", 2), ""}));
    EXPECT_EQ(runHelper({"print", "0", "2"}), (CommandResult{0, "", std::string("\0\1", 2)}));
}

TEST(ProcessCommandRunner, adds128ToTheNumberOfTheEndingSignal)
{
    EXPECT_EQ(runHelper({"die", std::to_string(SIGKILL)}).status, 137);
    EXPECT_EQ(runHelper({"die", std::to_string(SIGUSR1)}).status, 128 + SIGUSR1);
}

TEST(ProcessCommandRunner, passesArgumentsOnAsTheyAre)
{
    const std::vector<std::string> texts{"", " ", "a b", "$HOME; *", "line\nline", "é🦀", "\xFF\""};
    std::vector<std::string> arguments{"echo"};
    arguments.insert(arguments.end(), texts.begin(), texts.end());
    EXPECT_EQ(splitAfter(runHelper(arguments).standardOutput, '\0'), texts);
}

TEST(ProcessCommandRunner, letsTheChildInheritTheEnvironment)
{
    std::vector<std::string> own;
    for (char** entry = environ; *entry != nullptr; ++entry) {
        own.emplace_back(*entry);
    }
    EXPECT_EQ(splitAfter(runHelper({"print-environment"}).standardOutput, '\0'), own);
}

TEST(ProcessCommandRunner, putsVariablesInThePlaceOfItsOwnOrBesideThem)
{
    ASSERT_EQ(::setenv("RUNNER_TEST", "inherited", 1), 0);
    const ProcessCommandRunner runner(
        50s, {.variables = {{"RUNNER_TEST", "set"}, {"RUNNER_TEST_NEW", "a=b"}}});
    auto variables =
        splitAfter(runner.run(helperPath(), {"print-environment"}, {}).standardOutput, '\0');
    ::unsetenv("RUNNER_TEST");
    const auto home = std::string("HOME=") + ::getenv("HOME");
    EXPECT_THAT(variables, IsSupersetOf({home, "RUNNER_TEST_NEW=a=b"s}));
    std::erase_if(variables, [](const auto& text) { return !text.starts_with("RUNNER_TEST="); });
    EXPECT_THAT(variables, ElementsAre("RUNNER_TEST=set"));
}

TEST(ProcessCommandRunner, handsNoTerminalOnAsStandardInput)
{
    const FileDescriptor terminal(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC));
    ASSERT_EQ(::grantpt(terminal.number()), 0);
    ASSERT_EQ(::unlockpt(terminal.number()), 0);
    const FileDescriptor user(::open(::ptsname(terminal.number()), O_RDWR | O_NOCTTY | O_CLOEXEC));
    ASSERT_TRUE(user.isOpen());
    ASSERT_EQ(::write(terminal.number(), "typed\n", 6), 6);

    const StandardStreams restored;
    ASSERT_EQ(::dup2(user.number(), STDIN_FILENO), STDIN_FILENO);
    const ProcessCommandRunner runner(10s);
    EXPECT_EQ(runner.run(helperPath(), {"copy-input"}, {}), (CommandResult{0, "", ""}));
}

TEST(ProcessCommandRunner, letsTheChildInheritStandardInput)
{
    int ends[2] = {-1, -1};
    ASSERT_EQ(::pipe2(ends, O_CLOEXEC), 0);
    const FileDescriptor readingEnd(ends[0]);
    FileDescriptor writingEnd(ends[1]);
    ASSERT_EQ(::write(writingEnd.number(), "typed", 5), 5);
    writingEnd.close();

    const StandardStreams restored;
    ASSERT_EQ(::dup2(readingEnd.number(), STDIN_FILENO), STDIN_FILENO);
    EXPECT_EQ(runHelper({"copy-input"}), (CommandResult{0, "typed", ""}));
}

TEST(
    ProcessCommandRunner,
    startsTheChildInTheSameFolderAndASessionOfItsOwnWithSignalsAsTheyAreByDefault)
{
    sigset_t blocked;
    ::sigemptyset(&blocked);
    ::sigaddset(&blocked, SIGINT);
    ::sigaddset(&blocked, SIGTERM);
    sigset_t before;
    ASSERT_EQ(::pthread_sigmask(SIG_BLOCK, &blocked, &before), 0);
    auto* const handler = std::signal(SIGPIPE, SIG_IGN);

    const CommandResult result = runHelper({"print-surroundings"});

    std::signal(SIGPIPE, handler);
    ::pthread_sigmask(SIG_SETMASK, &before, nullptr);
    EXPECT_THAT(
        splitAfter(result.standardOutput, '\n'),
        ElementsAre(
            std::filesystem::current_path().string(),
            "own session",
            "own group",
            "blocked:",
            "ignored:"));
}

TEST(ProcessCommandRunner, passesNoDescriptorsOnButTheStandardStreams)
{
    const FileDescriptor carelesslyOpened(::open("/", O_RDONLY));
    EXPECT_EQ(runHelper({"list-descriptors"}), (CommandResult{0, "0\n1\n2\n", ""}));
}

TEST(ProcessCommandRunner, runsProgramsWhereThereAreNoStandardStreams)
{
    CommandResult result;
    {
        const StandardStreams restored;
        ::close(STDIN_FILENO);
        ::close(STDOUT_FILENO);
        ::close(STDERR_FILENO);
        result = runHelper({"print", "1", "2"});
    }
    EXPECT_EQ(result, (CommandResult{0, std::string("\0", 1), std::string("\0\1", 2)}));
}

TEST(ProcessCommandRunner, goesOnWhenASignalInterruptsTheWait)
{
    struct sigaction action{};
    action.sa_handler = [](int) {};  // Without SA_RESTART.
    struct sigaction before{};
    ASSERT_EQ(::sigaction(SIGUSR1, &action, &before), 0);
    HelperChannel channel;
    CommandResult result;
    std::thread runner([&] { result = runHelper({"wait", channel.folder()}); });
    channel.waitForLine();
    for (int count = 0; count < 100; ++count) {
        ::pthread_kill(runner.native_handle(), SIGUSR1);
    }
    channel.release();
    runner.join();
    ::sigaction(SIGUSR1, &before, nullptr);
    EXPECT_EQ(result, (CommandResult{0, "", ""}));
}

TEST(ProcessCommandRunner, servesSeveralThreadsAtOnce)
{
    const ProcessCommandRunner runner(50s);
    std::vector<std::future<CommandResult>> results;
    results.reserve(8);
    for (std::size_t size = 0; size < 8; ++size) {
        results.push_back(std::async(std::launch::async, [&runner, size] {
            const std::string bytes = std::to_string(size * 100'000);
            return runner.run(helperPath(), {"print", bytes, bytes}, {});
        }));
    }
    for (std::size_t size = 0; size < 8; ++size) {
        const std::string expected = helperPattern(size * 100'000);
        EXPECT_TRUE(results[size].get() == (CommandResult{0, expected, expected})) << size;
    }
}

class LaunchFailure : public testing::Test {
protected:
    LaunchFailure()
        : _folder(_channel.folder())
    {}

    std::filesystem::path file(const std::string& content, std::filesystem::perms permissions)
    {
        const std::filesystem::path path = _folder / "program";
        std::ofstream(path) << content;
        std::filesystem::permissions(path, permissions);
        return path;
    }

    std::filesystem::path folder() const { return _folder; }

    /// Expects the error and that neither a descriptor nor a child is left.
    static void expectFailure(
        const std::filesystem::path& executable,
        std::errc reason,
        const std::vector<std::string>& arguments = {})
    {
        const auto before = openDescriptors();
        try {
            ProcessCommandRunner(50s).run(executable, arguments, {});
            ADD_FAILURE() << executable << " was started";
        } catch (const std::system_error& error) {
            EXPECT_EQ(error.code(), reason) << error.what();
            EXPECT_THAT(error.what(), StartsWith("Could not start " + executable.string() + ": "));
        }
        EXPECT_EQ(openDescriptors(), before);
        EXPECT_FALSE(hasChildren());
    }

private:
    HelperChannel _channel;
    std::filesystem::path _folder;
};

TEST_F(LaunchFailure, isReportedForAMissingProgram)
{
    expectFailure(folder() / "missing", std::errc::no_such_file_or_directory);
    expectFailure(folder() / "missing" / "gh", std::errc::no_such_file_or_directory);
    expectFailure("", std::errc::no_such_file_or_directory);
}

TEST_F(LaunchFailure, isReportedForAFolder)
{
    expectFailure(folder(), std::errc::permission_denied);
}

TEST_F(LaunchFailure, isReportedForAFileThatMayNotBeExecuted)
{
    expectFailure(
        file("#!/bin/sh\n", std::filesystem::perms::owner_read), std::errc::permission_denied);
}

TEST_F(LaunchFailure, isReportedForAnExecutableFileThatIsNoProgram)
{
    expectFailure(
        file("echo hello\n", std::filesystem::perms::owner_all),
        std::errc::executable_format_error);
}

TEST_F(LaunchFailure, isReportedForAScriptWithoutItsInterpreter)
{
    expectFailure(
        file("#!/nowhere/sh\n", std::filesystem::perms::owner_all),
        std::errc::no_such_file_or_directory);
}

TEST_F(LaunchFailure, isReportedForArgumentsThatNoProgramCanTake)
{
    expectFailure(
        helperPath(), std::errc::argument_list_too_long, {"echo", std::string(mebibyte, 'x')});
    expectFailure(helperPath(), std::errc::invalid_argument, {"echo", std::string("cut\0off", 7)});
}

/// Lets this process open no descriptor from `count` on.
class DescriptorLimit {
public:
    explicit DescriptorLimit(rlim_t count)
    {
        EXPECT_EQ(::getrlimit(RLIMIT_NOFILE, &_normal), 0);
        const rlimit low{count, _normal.rlim_max};
        EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &low), 0);
    }

    DescriptorLimit(const DescriptorLimit&) = delete;
    DescriptorLimit& operator=(const DescriptorLimit&) = delete;

    ~DescriptorLimit() { EXPECT_EQ(::setrlimit(RLIMIT_NOFILE, &_normal), 0); }

private:
    rlimit _normal{};
};

TEST_F(LaunchFailure, leavesNothingBehindWhicheverDescriptorCannotBeOpened)
{
    // The undefined-behavior sanitizer opens a pipe where it meets a class for the first time.
    ASSERT_EQ(runHelper({"exit", "3"}).status, 3);
    const std::system_error met(EMFILE, std::generic_category());
    const auto before = openDescriptors();
    rlim_t limit = 0;
    while (before.contains(static_cast<int>(limit))) {
        ++limit;
    }
    std::vector<std::error_code> failures;
    std::int32_t status = -1;
    for (const rlim_t end = limit + 100; status < 0 && limit < end; ++limit) {
        try {
            const DescriptorLimit limited(limit);
            status = runHelper({"exit", "3"}).status;
        } catch (const std::system_error& error) {
            failures.push_back(error.code());
            EXPECT_THAT(error.what(), StartsWith("Could not start " + helperPath().string()));
        }
        EXPECT_EQ(openDescriptors(), before);
        EXPECT_FALSE(hasChildren());
    }
    EXPECT_EQ(status, 3);
    EXPECT_THAT(failures, Each(std::errc::too_many_files_open));
    EXPECT_GE(failures.size(), 3U);
}

}  // namespace

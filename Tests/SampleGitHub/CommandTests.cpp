#include "GhTest.h"

#include <csignal>
#include <fstream>

namespace {

using namespace TestSupport;

/// Runs of the program `tarnwick-sample-github`, which brings its own server.
class SampleCommand : public GhTest {
protected:
    Result run(const std::vector<std::string>& arguments) const
    {
        return runProgram(SAMPLE_GITHUB_PROGRAM, arguments, environment(), folder());
    }

    /// A shell that acts once the program has said that it serves, and then sends it a signal.
    Result serveAndSignal(const std::string& signal, const std::string& meanwhile) const
    {
        const std::string script =
            "mkfifo pipe && { \"$0\" --socket s --config-dir c >pipe & } && read -r line <pipe && "
            "echo \"$line\"; "
            + meanwhile + "; kill -" + signal + " $!; wait $!";
        return runProgram(
            "sh",
            {"-c", "cd '" + folder().string() + "' && " + script, SAMPLE_GITHUB_PROGRAM},
            environment(),
            folder());
    }

    std::string temporaryFiles() const
    {
        std::string names;
        for (const auto& entry : std::filesystem::directory_iterator(folder() / "tmp")) {
            names += entry.path().string() + "\n";
        }
        return names;
    }
};

TEST_F(SampleCommand, helpNamesTheScenariosAndFaults)
{
    const Result result = run({"--help"});

    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, StartsWith("Usage: tarnwick-sample-github"));
    EXPECT_THAT(result.output, HasSubstr("everyday"));
    EXPECT_THAT(result.output, HasSubstr("cut-off"));
    EXPECT_THAT(result.errors, IsEmpty());
}

TEST_F(SampleCommand, wrongArgumentsEndWithStatusTwoAndASentence)
{
    const std::string name = "tarnwick-sample-github: ";
    EXPECT_EQ(run({}).errors, name + "Give --socket or --exec. Try --help.\n");
    EXPECT_EQ(run({"--loud"}).errors, name + "Unknown argument --loud. Try --help.\n");
    EXPECT_EQ(run({"--socket"}).errors, name + "The option --socket needs a value. Try --help.\n");
    EXPECT_EQ(run({"--exec"}).errors, name + "The option --exec needs a command. Try --help.\n");
    EXPECT_EQ(run({"--fault", "fire"}).errors, name + "The fault fire is unknown. Try --help.\n");
    EXPECT_EQ(
        run({"--now", "noon"}).errors,
        name + "The --now value noon is not an ISO 8601 date. Try --help.\n");
    for (const char* quota : {"312", "312/5000", "312/5000@", "9/5@1", "1/2@3x", "-1/2@3"}) {
        EXPECT_EQ(
            run({"--quota", quota}).errors,
            name + "The quota " + quota
                + " is not of the form REMAINING/LIMIT@SECONDS. Try --help.\n");
    }
    EXPECT_EQ(run({}).status, 2);
}

TEST_F(SampleCommand, failuresEndWithStatusOneAndASentence)
{
    const Result result = run({"--scenario", "nowhere", "--exec", "true"});

    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.errors, "tarnwick-sample-github: The scenario nowhere could not be read.\n");
    EXPECT_EQ(run({"--exec", "no-such-command"}).status, 1);
    EXPECT_THAT(temporaryFiles(), IsEmpty());
}

TEST_F(SampleCommand, aCommandSeesTheSampleAndLendsItsStatus)
{
    const Result result = run({"--exec", "gh", "api", "user/repos", "--jq", ".[0].full_name"});

    EXPECT_EQ(result.status, 0) << result.errors;
    EXPECT_THAT(result.output, StrEq("harbourlight/ferry-api\n"));
    EXPECT_EQ(run({"--exec", "sh", "-c", "exit 7"}).status, 7);
    EXPECT_EQ(run({"--exec", "sh", "-c", "kill -KILL $$"}).status, 128 + SIGKILL);
    EXPECT_THAT(temporaryFiles(), IsEmpty());
}

TEST_F(SampleCommand, anotherAccountCanBeSignedIn)
{
    const Result result = run(
        {"--scenario",
         "involved",
         "--account",
         "mara",
         "--exec",
         "sh",
         "-c",
         "gh auth status 2>&1 | grep -o mara | head -1"});
    EXPECT_EQ(result.output, "mara\n") << result.errors;
    EXPECT_EQ(
        run({"--account", "nobody", "--exec", "true"}).errors,
        "tarnwick-sample-github: The scenario has no account nobody.\n");
}

TEST_F(SampleCommand, aCommandDoesNotSeeTheUsersTokenAndHost)
{
    auto environment = this->environment();
    environment["GH_TOKEN"] = "gho_secret";
    environment["GH_HOST"] = "example.com";

    const Result result = runProgram(
        SAMPLE_GITHUB_PROGRAM,
        {"--exec", "sh", "-c", "echo \"[$GH_TOKEN$GH_HOST]\"; gh api user/repos --jq length"},
        environment,
        folder());

    EXPECT_THAT(result.output, StrEq("[]\n5\n"));
}

TEST_F(SampleCommand, signalsReachTheCommand)
{
    const Result result = run(
        {"--exec",
         "sh",
         "-c",
         "trap 'echo told; exit 3' TERM; kill -TERM $PPID; while :; do :; done"});

    EXPECT_EQ(result.output, "told\n");
    EXPECT_EQ(result.status, 3);
    EXPECT_THAT(temporaryFiles(), IsEmpty());
}

TEST_F(SampleCommand, servesUntilASignalComes)
{
    for (const char* const signal : {"TERM", "INT", "HUP"}) {
        const Result result =
            serveAndSignal(signal, "GH_CONFIG_DIR=c gh api user/repos --jq length");

        EXPECT_EQ(result.status, 0) << signal << result.errors;
        EXPECT_EQ(result.output, "Serving everyday on s\n5\n");
        EXPECT_FALSE(std::filesystem::exists(folder() / "s"));
        std::filesystem::remove_all(folder() / "c");
        std::filesystem::remove(folder() / "pipe");
    }
    EXPECT_THAT(temporaryFiles(), IsEmpty());
}

TEST_F(SampleCommand, aConfigurationThatIsThereIsKept)
{
    std::filesystem::create_directory(folder() / "mine");
    std::ofstream(folder() / "mine" / "config.yml") << "editor: vi\n";

    const Result result = run({"--config-dir", (folder() / "mine").string(), "--exec", "true"});

    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, EndsWith("config.yml already exists.\n"));
    EXPECT_EQ(std::filesystem::file_size(folder() / "mine" / "config.yml"), 11U);
}

TEST_F(SampleCommand, requestsAreRecordedAsLinesOfJson)
{
    const std::string file = (folder() / "record").string();

    const Result result = run(
        {"--now",
         "2026-03-01T12:00:00Z",
         "--fault",
         "rate-limit@repositories#1",
         "--record",
         file,
         "--exec",
         "gh",
         "api",
         "user/repos"});

    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("API rate limit exceeded"));
    std::ifstream stream(file);
    std::string line;
    ASSERT_TRUE(std::getline(stream, line));
    const auto record = boost::json::parse(line);
    EXPECT_EQ(at(record, "/kind"), "repositories");
    EXPECT_EQ(at(record, "/method"), "GET");
    EXPECT_EQ(at(record, "/target"), "/user/repos");
    EXPECT_EQ(at(record, "/headers/host"), "api.github.com");
    EXPECT_EQ(at(record, "/body"), "");
    EXPECT_FALSE(std::getline(stream, line));
}

}  // namespace

#include "SampleGitHub/ScenarioFile.h"

#include "GhTest.h"

#include <fstream>
#include <stdexcept>

namespace {

using namespace SampleGitHub;

class ScenarioFileTest : public GhTest {
protected:
    std::filesystem::path write(const std::string& text) const
    {
        const auto file = folder() / "scenario.json";
        const auto other = folder() / "scenario.new";
        std::ofstream(other) << text;
        // Each writing is a second later than the one before, whatever the clock's precision.
        static auto time = std::filesystem::file_time_type::clock::now();
        std::filesystem::last_write_time(other, time += std::chrono::seconds(1));
        std::filesystem::rename(other, file);
        return file;
    }

    const std::string two = R"({"account": {"login": "ann"}, "otherAccounts": [{"login": "bo"}]})";
};

TEST_F(ScenarioFileTest, tellsOfAChangeOnce)
{
    ScenarioFile file(write(two), std::nullopt);
    EXPECT_EQ(file.scenario().account->login, "ann");
    EXPECT_EQ(file.changed(), std::nullopt);
    write(R"({"account": {"login": "cy"}})");
    const auto changed = file.changed();
    ASSERT_TRUE(changed);
    EXPECT_EQ(changed->account->login, "cy");
    EXPECT_EQ(file.changed(), std::nullopt);
}

TEST_F(ScenarioFileTest, waitsForWhatCanBeRead)
{
    ScenarioFile file(write(two), std::nullopt);
    write(two.substr(0, 20));
    EXPECT_EQ(file.changed(), std::nullopt);
    std::filesystem::remove(folder() / "scenario.json");
    EXPECT_EQ(file.changed(), std::nullopt);
    write(R"({"account": {"login": "cy"}})");
    EXPECT_TRUE(file.changed());
}

TEST_F(ScenarioFileTest, signsAnotherAccountIn)
{
    ScenarioFile file(write(two), "bo");
    EXPECT_EQ(file.scenario().account->login, "bo");
    EXPECT_THROW(ScenarioFile(write(two), "cy"), std::runtime_error);
}

TEST_F(ScenarioFileTest, changesWhatIsServed)
{
    const auto file = write(two);
    const std::string gh = "gh api graphql -f query='query { viewer { login } }' --jq .data[][]";
    const Result result = TestSupport::runProgram(
        SAMPLE_GITHUB_PROGRAM,
        {"--scenario",
         file,
         "--exec",
         "sh",
         "-c",
         gh + "; echo '{\"account\": {\"login\": \"cynthia\"}}' >" + file.string() + "; " + gh},
        environment(),
        folder());
    EXPECT_EQ(result.output, "ann\ncynthia\n") << result.errors;
}

}  // namespace

#include "TarnwickTest.h"

namespace {

using namespace TestSupport;

class Repositories : public TarnwickTest {
protected:
    void SetUp() override { serve("everyday"); }
};

TEST_F(Repositories, areListedWithAMarkAtWhatIsChosen)
{
    writeSettings("filters.repositories=robin-k/dotfiles\nfilters.repositoriesConfigured=true\n");
    const auto result = tarnwick({"repositories"});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(
        result.output,
        "  harbourlight/ferry-api    private, Go\n"
        "  harbourlight/ferry-web    public, TypeScript\n"
        "  harbourlight/tide-tables  public, Python\n"
        "✓ robin-k/dotfiles          public, Shell\n"
        "  robin-k/pocket-atlas      private, archived\n");
    EXPECT_THAT(result.errors, IsEmpty());
}

TEST_F(Repositories, areListedAsJson)
{
    writeSettings("filters.repositories=robin-k/dotfiles\nfilters.repositoriesConfigured=true\n");
    const auto result = tarnwick({"repositories", "--json"});
    const auto document = boost::json::parse(result.output);
    const auto& list = document.at("repositories").as_array();
    ASSERT_EQ(list.size(), 5U);
    EXPECT_EQ(
        list[3], boost::json::parse(R"({"fullName": "robin-k/dotfiles", "visibility": "public",
            "language": "Shell", "defaultBranch": "main", "isArchived": false,
            "isSelected": true})"));
    EXPECT_EQ(list[4].at("isArchived"), true);
    EXPECT_FALSE(list[4].as_object().contains("language"));
    EXPECT_EQ(list[4].at("isSelected"), false);
}

TEST_F(Repositories, areSelectedAndUnselectedByName)
{
    EXPECT_EQ(
        tarnwick({"repositories", "select", "robin-k/dotfiles", "harbourlight/ferry-api"}).status,
        0);
    EXPECT_THAT(
        readFile(settingsFile()),
        HasSubstr("filters.repositories=harbourlight/ferry-api, robin-k/dotfiles\n"));
    EXPECT_THAT(readFile(settingsFile()), HasSubstr("filters.repositoriesConfigured=true\n"));
    EXPECT_EQ(tarnwick({"repositories", "unselect", "robin-k/dotfiles"}).status, 0);
    EXPECT_THAT(
        readFile(settingsFile()), HasSubstr("filters.repositories=harbourlight/ferry-api\n"));
}

TEST_F(Repositories, areSelectedAndUnselectedAllAtOnce)
{
    EXPECT_EQ(tarnwick({"repositories", "select", "--all"}).status, 0);
    EXPECT_THAT(
        readFile(settingsFile()),
        HasSubstr("filters.repositories=harbourlight/ferry-api, harbourlight/ferry-web, "
                  "harbourlight/tide-tables, robin-k/dotfiles, robin-k/pocket-atlas\n"));
    EXPECT_EQ(tarnwick({"repositories", "unselect", "--all"}).status, 0);
    EXPECT_THAT(readFile(settingsFile()), Not(HasSubstr("harbourlight")));
    EXPECT_THAT(readFile(settingsFile()), HasSubstr("filters.repositoriesConfigured=true\n"));
}

TEST_F(Repositories, aNameThatGitHubDidNotListChangesNothing)
{
    writeSettings("filters.repositories=robin-k/dotfiles\nfilters.repositoriesConfigured=true\n"
                  "filters.schemaVersion=2\n");
    const auto result =
        tarnwick({"repositories", "select", "harbourlight/ferry-api", "harbourlight/lost"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("harbourlight/lost"));
    EXPECT_THAT(readFile(settingsFile()), HasSubstr("filters.repositories=robin-k/dotfiles\n"));
    EXPECT_EQ(tarnwick({"repositories", "unselect", "harbourlight/lost"}).status, 1);
}

TEST_F(Repositories, aFailedListingChangesNothing)
{
    setFault("server-error@repositories");
    const auto result = tarnwick({"repositories", "select", "--all"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("500"));
    EXPECT_FALSE(std::filesystem::exists(settingsFile()));
}

class RepositoriesSignedOut : public TarnwickTest {};

TEST_F(RepositoriesSignedOut, sayWhatToDo)
{
    serve("signed-out");
    const auto result = tarnwick({"repositories"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, IsEmpty());
    EXPECT_THAT(result.errors, HasSubstr("gh auth login"));
}

}  // namespace

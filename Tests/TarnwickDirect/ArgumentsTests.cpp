#include "TarnwickDirect/CommandLine/Arguments.h"

#include "Support/Errors.h"
#include "TarnwickDirect/CommandLine/Terminal.h"

#include <algorithm>
#include <sstream>

namespace {

using namespace TarnwickDirect;
using namespace testing;

std::string usageError(const std::vector<std::string>& arguments)
{
    return TestSupport::messageOf<UsageError>([&] { parseArguments(arguments); });
}

template<typename Expected>
bool asks(const std::vector<std::string>& arguments)
{
    return std::holds_alternative<Expected>(parseArguments(arguments));
}

ShowPanel::Manner manner(const std::vector<std::string>& arguments)
{
    return std::get<ShowPanel>(parseArguments(arguments)).manner;
}

TEST(Arguments, noneShowThePanel)
{
    EXPECT_EQ(manner({}), ShowPanel::Manner::show);
}

TEST(Arguments, thePanelInTheBackgroundOrToggled)
{
    EXPECT_EQ(manner({"--background"}), ShowPanel::Manner::background);
    EXPECT_EQ(manner({"--toggle"}), ShowPanel::Manner::toggle);
}

TEST(Arguments, listAsTextAndAsJson)
{
    EXPECT_FALSE(std::get<ListPullRequests>(parseArguments({"list"})).asJson);
    EXPECT_TRUE(std::get<ListPullRequests>(parseArguments({"list", "--json"})).asJson);
}

TEST(Arguments, listByWhoseTurnAndForOtherReviewersForOnce)
{
    const auto list = [](const std::vector<std::string>& words) {
        return std::get<ListPullRequests>(parseArguments(words));
    };
    EXPECT_FALSE(list({"list"}).byTurn);
    EXPECT_TRUE(list({"list", "--by-turn", "--json"}).byTurn);
    EXPECT_EQ(list({"list"}).reviewers, std::nullopt);
    EXPECT_EQ(list({"list", "--reviewers", "myself"}).reviewers, Tarnwick::ReviewerFilter::myself);
    EXPECT_EQ(list({"list", "--reviewers=any"}).reviewers, Tarnwick::ReviewerFilter::any);
    EXPECT_EQ(
        list({"list", "--reviewers", "any", "--reviewers", "involved"}).reviewers,
        Tarnwick::ReviewerFilter::involved);
}

TEST(Arguments, listRepositoriesAsTextAndAsJson)
{
    EXPECT_FALSE(std::get<ListRepositories>(parseArguments({"repositories"})).asJson);
    EXPECT_TRUE(std::get<ListRepositories>(parseArguments({"repositories", "--json"})).asJson);
}

TEST(Arguments, selectAndUnselectByName)
{
    const auto select =
        std::get<ChangeSelection>(parseArguments({"repositories", "select", "octo/a", "octo/b"}));
    EXPECT_TRUE(select.select);
    EXPECT_FALSE(select.all);
    EXPECT_THAT(select.names, ElementsAre("octo/a", "octo/b"));
    const auto unselect =
        std::get<ChangeSelection>(parseArguments({"repositories", "unselect", "octo/a"}));
    EXPECT_FALSE(unselect.select);
    EXPECT_THAT(unselect.names, ElementsAre("octo/a"));
}

TEST(Arguments, selectAll)
{
    const auto change =
        std::get<ChangeSelection>(parseArguments({"repositories", "select", "--all"}));
    EXPECT_TRUE(change.all);
    EXPECT_THAT(change.names, IsEmpty());
}

TEST(Arguments, aDoubleDashEndsTheOptions)
{
    const auto change =
        std::get<ChangeSelection>(parseArguments({"repositories", "select", "--", "--all"}));
    EXPECT_FALSE(change.all);
    EXPECT_THAT(change.names, ElementsAre("--all"));
}

TEST(Arguments, helpIsThereEverywhere)
{
    EXPECT_TRUE(asks<ShowHelp>({"--help"}));
    EXPECT_TRUE(asks<ShowHelp>({"-h"}));
    EXPECT_TRUE(asks<ShowHelp>({"list", "--help"}));
    EXPECT_TRUE(asks<ShowHelp>({"repositories", "--help"}));
    EXPECT_TRUE(asks<ShowHelp>({"repositories", "select", "--help"}));
    EXPECT_TRUE(asks<ShowVersion>({"--version"}));
}

TEST(Arguments, helpNamesEveryCommand)
{
    for (const char* const command :
         {"tarnwick [--background | --toggle]",
          "tarnwick list [--by-turn] [--reviewers myself | any | involved] [--json]",
          "tarnwick list --cached [--by-turn] [--json]",
          "tarnwick watch [--format json | waybar | i3 | line]",
          "tarnwick repositories [--json]",
          "tarnwick repositories select",
          "tarnwick repositories unselect",
          "--version"}) {
        EXPECT_THAT(helpText(), HasSubstr(command));
    }
}

TEST(Arguments, listCanPrintWhatWasLastKnown)
{
    EXPECT_FALSE(std::get<ListPullRequests>(parseArguments({"list"})).isCached);
    const auto command = parseArguments({"list", "--cached", "--json"});
    EXPECT_TRUE(std::get<ListPullRequests>(command).isCached);
    EXPECT_TRUE(std::get<ListPullRequests>(command).asJson);
}

TEST(Arguments, watchTakesAFormat)
{
    const auto format = [](const std::vector<std::string>& words) {
        return std::get<WatchList>(parseArguments(words)).format;
    };
    EXPECT_EQ(format({"watch"}), WatchFormat::json);
    EXPECT_EQ(format({"watch", "--format", "waybar"}), WatchFormat::waybar);
    EXPECT_EQ(format({"watch", "--format=i3"}), WatchFormat::i3);
    EXPECT_EQ(format({"watch", "--format", "i3", "--format", "line"}), WatchFormat::line);
    EXPECT_EQ(usageError({"watch", "--format"}), "--format needs a value.");
    EXPECT_EQ(
        usageError({"watch", "--format", "xml"}), "--format must be json, waybar, i3 or line.");
    EXPECT_EQ(usageError({"watch", "--json"}), "Unknown option --json.");
    EXPECT_EQ(usageError({"watch", "now"}), "Unexpected argument \"now\".");
    EXPECT_EQ(usageError({"list", "--json=yes"}), "Unknown option --json=yes.");
}

TEST(Arguments, helpFitsOneScreen)
{
    const std::string text = helpText();
    EXPECT_LE(std::ranges::count(text, '\n'), 23);
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        EXPECT_LE(displayWidth(line), 80) << line;
    }
}

TEST(Arguments, namesWhatIsInvalid)
{
    EXPECT_THAT(usageError({"--background", "--toggle"}), HasSubstr("not both"));
    EXPECT_THAT(usageError({"--background", "list"}), HasSubstr("\"list\""));
    EXPECT_THAT(usageError({"list", "--toggle"}), HasSubstr("--toggle"));
    EXPECT_EQ(usageError({"lost"}), "Unexpected argument \"lost\".");
    EXPECT_THAT(usageError({"list", "octo/a"}), HasSubstr("\"octo/a\""));
    EXPECT_EQ(usageError({"list", "--yaml"}), "Unknown option --yaml.");
    EXPECT_EQ(
        usageError({"list", "--cached", "--reviewers", "any"}),
        "Give --cached or --reviewers, not both.");
    EXPECT_EQ(usageError({"list", "--reviewers"}), "--reviewers needs a value.");
    for (const std::string name : {"Any", "me", ""}) {
        EXPECT_EQ(
            usageError({"list", "--reviewers", name}),
            "--reviewers must be myself, any or involved.");
    }
    EXPECT_EQ(usageError({"list", "--by-turn=yes"}), "Unknown option --by-turn=yes.");
    EXPECT_THAT(usageError({"--json"}), HasSubstr("--json"));
    EXPECT_THAT(usageError({"repositories", "choose"}), HasSubstr("\"choose\""));
    EXPECT_THAT(usageError({"repositories", "select"}), HasSubstr("owner/name"));
    EXPECT_THAT(usageError({"repositories", "select", "octo/a", "--all"}), HasSubstr("not both"));
    EXPECT_THAT(usageError({"repositories", "select", "--json"}), HasSubstr("--json"));
}

}  // namespace

#include "Support/Joined.h"
#include "Support/Mapped.h"
#include "TarnwickTest.h"

#include <fstream>

namespace {

using namespace TestSupport;

class List : public TarnwickTest {
protected:
    static constexpr const char* everything =
        "harbourlight/ferry-api, harbourlight/ferry-web, harbourlight/tide-tables, "
        "robin-k/dotfiles, robin-k/pocket-atlas";
};

TEST_F(List, drawsTheEverydayStacks)
{
    serve("everyday");
    select(everything);
    const auto result = tarnwick({"list"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.errors, IsEmpty());
    EXPECT_THAT(result.output, HasSubstr("\n├─ #226 "));
    EXPECT_THAT(result.output, HasSubstr("\n└─ #225 "));
    EXPECT_THAT(result.output, HasSubstr("\n└─ #415 "));
    EXPECT_THAT(result.output, HasSubstr("\n   └─ #418 "));
    EXPECT_THAT(result.output, HasSubstr("  Ambiguous base branch\n"));
    EXPECT_THAT(result.output, HasSubstr("  Cyclic branch dependency\n"));
    EXPECT_THAT(result.output, Not(HasSubstr("\x1b")));
}

TEST_F(List, tellsTheSameAsJson)
{
    serve("everyday");
    select("harbourlight/tide-tables, harbourlight/ferry-web");
    const auto list = listJson();
    EXPECT_EQ(list.at("state"), "loaded");
    EXPECT_EQ(list.at("account"), "robin-k");
    EXPECT_FALSE(list.contains("message"));
    EXPECT_FALSE(list.contains("refreshError"));
    const auto rows = outline(list);
    EXPECT_THAT(
        rows,
        IsSupersetOf(
            {"harbourlight/ferry-web#224 0",
             "harbourlight/ferry-web#225 1",
             "harbourlight/ferry-web#226 1",
             "harbourlight/ferry-web#235 0 Ambiguous base branch",
             "harbourlight/tide-tables#79 0 Cyclic branch dependency",
             "harbourlight/tide-tables#80 0 Cyclic branch dependency",
             "harbourlight/tide-tables#81 0"}));
    EXPECT_EQ(rows.size(), 14U);
    EXPECT_TRUE(list.at("lastRefreshed").as_string().ends_with("Z"));
    for (const auto& row : list.at("rows").as_array()) {
        EXPECT_EQ(row.at("isVisited"), false);
    }
}

TEST_F(List, asksForMyReviewsFirst)
{
    serve("everyday");
    writeSettings(
        "filters.repositories=harbourlight/ferry-web\nfilters.repositoriesConfigured=true\n");
    EXPECT_THAT(
        outline(listJson()),
        UnorderedElementsAre(
            "harbourlight/ferry-web#228 0",
            "harbourlight/ferry-web#231 0",
            "harbourlight/ferry-web#235 0"));
}

TEST_F(List, knowsTheRequiredApprovalsOfBothKindsOfRules)
{
    serve("everyday");
    select("harbourlight/ferry-api, harbourlight/tide-tables");
    const auto list = listJson();
    for (const auto& row : list.at("rows").as_array()) {
        const auto& pullRequest = row.at("pullRequest").as_object();
        const std::string base(pullRequest.at("base").at("name").as_string());
        const auto* const required = pullRequest.if_contains("requiredApprovingReviewCount");
        if (base == "main") {
            ASSERT_NE(required, nullptr);
            EXPECT_EQ(*required, 2);
        } else if (base == "release/4.x") {
            ASSERT_NE(required, nullptr);
            EXPECT_EQ(*required, 1);
        } else {
            EXPECT_EQ(required, nullptr) << base;
        }
    }
}

TEST_F(List, marksWhatWasVisitedSinceItChanged)
{
    serve("everyday");
    select("harbourlight/tide-tables");
    std::ofstream(settingsFile(), std::ios::app)
        << "lastVisitedAt.github%7Cgithub.com%7Charbourlight%2Ftide-tables%7C77="
           "@Date(2026-03-01T12:00:00Z)\n"
           "lastVisitedAt.github%7Cgithub.com%7Charbourlight%2Ftide-tables%7C80="
           "@Date(2020-01-01T00:00:00Z)\n";
    const auto list = listJson();
    for (const auto& row : list.at("rows").as_array()) {
        const bool is77 = row.at("pullRequest").at("id").at("number") == 77;
        EXPECT_EQ(row.at("isVisited").as_bool(), is77);
    }
}

TEST_F(List, leavesOutWhatIsMutedAndEndsMutesInTime)
{
    serve("everyday");
    select("harbourlight/tide-tables");
    const std::string key = "mutes.pullRequest.github%7Cgithub.com%7Charbourlight%2Ftide-tables%7C";
    std::ofstream(settingsFile(), std::ios::app) << "mutes.authors=TOMASZ-W\n"
                                                 << key << "77=@Date(2020-01-01T00:00:00Z)\n"
                                                 << key << "74=@Date(9000-01-01T00:00:00Z)\n";
    const auto list = listJson();
    const auto numbers = mapped(list.at("rows").as_array(), [](const boost::json::value& row) {
        return row.at("pullRequest").at("id").at("number").to_number<std::int64_t>();
    });
    EXPECT_THAT(numbers, UnorderedElementsAre(77, 81));
    EXPECT_EQ(boost::json::serialize(list.at("hidden")), R"({"filters":0,"muted":3})");
    const std::string settings = readFile(settingsFile());
    EXPECT_THAT(settings, Not(HasSubstr(key + "77="))) << "it has ended";
    EXPECT_THAT(settings, Not(HasSubstr("9000"))) << "none lasts longer than a day from now";
    EXPECT_THAT(settings, HasSubstr(key + "74=@Date("));
}

TEST_F(List, aFirstRunSaysHowToSelect)
{
    serve("everyday");
    const auto result = tarnwick({"list"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, IsEmpty());
    EXPECT_THAT(result.errors, HasSubstr("tarnwick repositories select"));
    EXPECT_THAT(readFile(settingsFile()), HasSubstr("filters.repositoriesConfigured=true"));
}

TEST_F(List, saysThatThereIsNothing)
{
    serve("empty");
    select("octo/tools");
    const auto result = tarnwick({"list"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, IsEmpty());
    EXPECT_EQ(result.errors, "No pull requests involving you were found.\n");
}

TEST_F(List, saysWhatTheFiltersHide)
{
    serve("everyday");
    writeSettings("filters.repositories=harbourlight/ferry-web, harbourlight/tide-tables\n"
                  "filters.repositoriesConfigured=true\nfilters.reviewers=Any\n"
                  "filters.status=Draft\nfilters.reviewStates=Commented\n"
                  "filters.schemaVersion=2\n");
    const auto result = tarnwick({"list"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, IsEmpty());
    EXPECT_EQ(
        result.errors, "No pull requests involving you were found. 14 are hidden by filters.\n");
}

TEST_F(List, saysWhatToDoWhenNobodyIsSignedIn)
{
    serve("signed-out");
    const auto result = tarnwick({"list"});
    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.output, IsEmpty());
    EXPECT_THAT(result.errors, HasSubstr("gh auth login"));
    EXPECT_FALSE(std::filesystem::exists(cacheFile()));
    const auto list = listJson();
    EXPECT_EQ(list.at("state"), "signedOut");
    EXPECT_FALSE(list.at("message").as_string().empty());
    EXPECT_THAT(list.at("rows").as_array(), SizeIs(0));
}

TEST_F(List, keepsTheSnapshotForItsOwnerAlone)
{
    serve("everyday");
    select("harbourlight/tide-tables");
    ASSERT_EQ(tarnwick({"list"}).status, 0);
    EXPECT_EQ(
        std::filesystem::status(cacheFile()).permissions(),
        std::filesystem::perms::owner_read | std::filesystem::perms::owner_write);
    const auto snapshot = boost::json::parse(readFile(cacheFile())).as_object();
    const auto keys =
        mapped(snapshot, [](const auto& member) { return std::string(member.key()); });
    EXPECT_EQ(
        joined(keys),
        "pullRequests, repositories, account, refreshedAt, reviewerScope, repositoryScope, "
        "reviewFilters, states");
    EXPECT_EQ(snapshot.at("pullRequests").as_array().size(), 5U);
    EXPECT_EQ(snapshot.at("repositories").as_array().size(), 5U);
    EXPECT_EQ(snapshot.at("reviewerScope"), "any");
    EXPECT_EQ(
        snapshot.at("repositoryScope"), boost::json::parse(R"(["harbourlight/tide-tables"])"));
    EXPECT_EQ(snapshot.at("reviewFilters"), boost::json::array());
    EXPECT_EQ(snapshot.at("states"), boost::json::parse(R"(["open"])"));
}

TEST_F(List, leavesTheNotificationSettingsAlone)
{
    serve("everyday");
    select("harbourlight/tide-tables");
    std::ofstream(settingsFile(), std::ios::app)
        << "notifications.newPullRequests=true\nnotifications.unblocked=true\n";
    ASSERT_EQ(tarnwick({"list"}).status, 0);
    ASSERT_EQ(tarnwick({"list"}).status, 0);
    const std::string settings = readFile(settingsFile());
    EXPECT_THAT(settings, HasSubstr("notifications.newPullRequests=true"));
    EXPECT_THAT(settings, HasSubstr("notifications.unblocked=true"));
}

TEST_F(List, pagesThroughTheLargeAccount)
{
    serve("large");
    ASSERT_EQ(tarnwick({"repositories", "select", "--all"}).status, 0);
    std::ofstream(settingsFile(), std::ios::app)
        << "filters.reviewers=Any\nfilters.status=Draft, Open\n";
    server().forgetRequests();
    const auto list = listJson();
    EXPECT_EQ(list.at("state"), "loaded");
    EXPECT_EQ(list.at("rows").as_array().size(), 1000U);
    std::size_t pages = 0;
    std::size_t listings = 0;
    for (const auto& recorded : server().requests()) {
        pages += recorded.kind == SampleGitHub::RequestKind::search ? 1 : 0;
        listings += recorded.kind == SampleGitHub::RequestKind::repositories ? 1 : 0;
    }
    EXPECT_EQ(pages, 20U);
    EXPECT_EQ(listings, 30U);
}

TEST_F(List, printsItsHelpAndItsVersion)
{
    const auto help = tarnwick({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_THAT(help.output, HasSubstr("Usage:"));
    const auto version = tarnwick({"--version"});
    EXPECT_EQ(version.status, 0);
    EXPECT_THAT(version.output, MatchesRegex("tarnwick [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST_F(List, refusesWhatMakesNoSense)
{
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{"lost"}, {"list", "--yaml"}, {"repositories", "select"}}) {
        const auto result = tarnwick(arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_THAT(result.output, IsEmpty());
        EXPECT_THAT(result.errors, HasSubstr("tarnwick --help"));
    }
    EXPECT_FALSE(std::filesystem::exists(settingsFile()));
}

}  // namespace

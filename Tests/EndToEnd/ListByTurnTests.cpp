#include "TarnwickTest.h"

#include <algorithm>
#include <map>

namespace {

using namespace TestSupport;
using SampleGitHub::RequestKind;

/// The list by whose turn it is, of a user who has a part in every pull request.
class ListByTurn : public TarnwickTest {
protected:
    void writeInvolved(const std::string& more = {}) const
    {
        writeSettings(
            "filters.repositories=northmere/quay, saltmarsh/tidewatch, saltmarsh/beacon, "
            "fenland/compass, northmere/beacon\nfilters.repositoriesConfigured=true\n"
            "filters.reviewers=Involved\nfilters.status=Draft, Open\nfilters.schemaVersion=2\n"
            + more);
    }

    boost::json::object json(const std::vector<std::string>& options) const
    {
        std::vector<std::string> arguments{"list", "--json"};
        arguments.insert(arguments.end(), options.begin(), options.end());
        return boost::json::parse(tarnwick(arguments).output).as_object();
    }

    std::size_t asked(RequestKind kind)
    {
        const auto requests = server().requests();
        return static_cast<std::size_t>(
            std::ranges::count(requests, kind, &SampleGitHub::RecordedRequest::kind));
    }
};

using Reasons = std::multimap<std::string, std::string>;

/// The reason of each row, "-" where there is none, below its turn.
Reasons reasonsOf(const boost::json::object& list)
{
    Reasons reasons;
    for (const auto& row : list.at("rows").as_array()) {
        const auto* const reason = row.as_object().if_contains("reason");
        reasons.emplace(row.at("turn").as_string(), reason != nullptr ? reason->as_string() : "-");
    }
    return reasons;
}

std::vector<std::string> reasonsOf(const boost::json::object& list, const std::string& turn)
{
    std::vector<std::string> reasons;
    const Reasons all = reasonsOf(list);
    for (const auto& [key, reason] : all) {
        if (key == turn) {
            reasons.push_back(reason);
        }
    }
    return reasons;
}

TEST_F(ListByTurn, tellsEveryReason)
{
    serve("involved");
    writeInvolved();
    const auto list = json({"--by-turn"});
    EXPECT_THAT(
        reasonsOf(list, "you"),
        UnorderedElementsAre(
            "Your review again",
            "Your review again",
            "Your review again",
            "Your review",
            "Your review",
            "Your review",
            "Your review",
            "Changes requested: noa-b",
            "Conflicts",
            "Checks failed: build, test (linux)",
            "3 open threads",
            "1 open thread",
            "No reviewers yet"));
    EXPECT_THAT(
        reasonsOf(list, "ready"),
        ElementsAre("Ready to merge", "Ready to merge", "Ready to merge"));
    EXPECT_THAT(reasonsOf(list, "teams"), ElementsAre("Your team’s review: platform"));
    EXPECT_THAT(
        reasonsOf(list, "others"),
        UnorderedElementsAre(
            "Waiting for mara, noa-b",
            "Draft",
            "Draft",
            "Draft",
            "Waiting for lena",
            "Merge queue, 2nd",
            "Auto-merge",
            "Checks running",
            "Waiting for mara",
            "Waiting for #412",
            "Waiting for noa-b",
            "-",
            "-"));
    EXPECT_EQ(asked(RequestKind::facts), 1U);
    EXPECT_EQ(
        list.at("quota"),
        (boost::json::object{
            {"remaining", 5000}, {"limit", 5000}, {"resetAt", "2026-03-01T13:00:00Z"}}));
}

TEST_F(ListByTurn, printsHeadingsInTheirOrder)
{
    serve("involved");
    writeInvolved();
    const auto result = tarnwick({"list", "--by-turn"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.errors, IsEmpty());
    EXPECT_THAT(result.output, StartsWith("Waiting on You  13\n#"));
    EXPECT_THAT(result.output, HasSubstr("\n\nReady to Merge  3\n#"));
    EXPECT_THAT(result.output, HasSubstr("\n\nYour Teams  1\n#34 "));
    EXPECT_THAT(result.output, HasSubstr("\n\nWaiting on Others  11\n#"));
}

TEST_F(ListByTurn, isThatOfSomebodyElseForAnotherAccount)
{
    SampleGitHub::Scenario scenario = SampleGitHub::loadScenario("involved");
    SampleGitHub::signIn(scenario, "mara");
    serve(scenario);
    writeInvolved();
    const auto list = json({"--by-turn"});
    EXPECT_EQ(list.at("account"), "mara");
    EXPECT_EQ(list.at("rows").as_array().size(), 12U);
    EXPECT_EQ(reasonsOf(list, "you").size(), 7U);
}

TEST_F(ListByTurn, isTheListWhereTheSettingSaysSo)
{
    serve("involved");
    writeInvolved("list.arrangement=By Whose Turn\n");
    EXPECT_THAT(tarnwick({"list"}).output, StartsWith("Waiting on You  13\n"));
    EXPECT_EQ(asked(RequestKind::facts), 1U);
    EXPECT_EQ(reasonsOf(json({})).size(), 30U);
}

TEST_F(ListByTurn, isNotAskedForInTheDefaultArrangement)
{
    serve("involved");
    writeInvolved();
    const auto list = json({});
    EXPECT_EQ(asked(RequestKind::facts), 0U);
    EXPECT_EQ(asked(RequestKind::search), 3U);
    EXPECT_EQ(asked(RequestKind::rules), 1U);
    EXPECT_EQ(asked(RequestKind::repositories), 1U);
    EXPECT_FALSE(list.contains("quota"));
    for (const auto& row : list.at("rows").as_array()) {
        std::vector<std::string> keys;
        for (const auto& member : row.as_object()) {
            if (member.key() != "warning") {
                keys.emplace_back(member.key());
            }
        }
        EXPECT_THAT(
            keys, ElementsAre("pullRequest", "depth", "hasChildren", "isVisited", "details"));
    }
}

TEST_F(ListByTurn, goesWithoutFactsThatCannotBeHad)
{
    serve("involved");
    writeInvolved();
    setFault("server-error@facts");
    const auto result = tarnwick({"list", "--by-turn"});
    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.errors, IsEmpty());
    EXPECT_THAT(result.output, StartsWith("Waiting on You  9\n"));
    EXPECT_THAT(result.output, Not(HasSubstr("Ready to Merge")));
}

TEST_F(ListByTurn, tellsTheNamesBehindTheCounts)
{
    serve("involved");
    writeInvolved();
    const auto list = json({});
    const auto& rows = list.at("rows").as_array();
    const auto* const row = std::ranges::find_if(rows, [](const boost::json::value& value) {
        return value.at("pullRequest").at("id").at("number") == 93;
    });
    ASSERT_NE(row, rows.end());
    EXPECT_EQ(
        boost::json::serialize(row->at("details")),
        "{\"requested\":{\"users\":[\"lena\",\"noa-b\"],\"teams\":[]},\"reviews\":[],"
        "\"checks\":{\"passed\":7,\"running\":[],\"failed\":[\"build\",\"test (linux)\"]},"
        "\"isCutOff\":false}");
}

TEST_F(ListByTurn, asksOnceForWhatStaysTheSame)
{
    serve("involved");
    writeInvolved();
    const auto first = tarnwick({"list", "--by-turn"});
    server().forgetRequests();
    EXPECT_EQ(tarnwick({"list", "--by-turn"}).output, first.output);
    EXPECT_EQ(asked(RequestKind::facts), 0U);
    EXPECT_THAT(readFile(settingsFile()), Not(HasSubstr("By Whose Turn")));
}

TEST_F(ListByTurn, otherReviewersCountForOnce)
{
    serve("involved");
    writeInvolved();
    ASSERT_EQ(tarnwick({"list", "--by-turn"}).status, 0);
    const auto folder = cacheFile().parent_path();
    const std::string cache = readFile(cacheFile());
    const std::string names = readFile(folder / "pull-request-details.json");
    const std::string facts = readFile(folder / "pull-request-facts.json");
    const std::string settings = readFile(settingsFile());
    EXPECT_EQ(json({"--reviewers", "myself"}).at("rows").as_array().size(), 6U);
    EXPECT_EQ(json({"--reviewers=any", "--by-turn"}).at("rows").as_array().size(), 30U);
    EXPECT_EQ(readFile(cacheFile()), cache);
    EXPECT_EQ(readFile(folder / "pull-request-details.json"), names);
    EXPECT_EQ(readFile(folder / "pull-request-facts.json"), facts);
    EXPECT_EQ(readFile(settingsFile()), settings);
    setFault("server-error");
    const auto failed = json({"--reviewers", "myself"});
    EXPECT_NE(failed.at("state"), "loaded");
    EXPECT_THAT(failed.at("rows").as_array(), SizeIs(0));
    EXPECT_EQ(json({}).at("rows").as_array().size(), 30U) << "the kept list";
}

}  // namespace

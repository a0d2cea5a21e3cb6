#include "GhTest.h"

#include <sstream>

namespace {

using namespace TestSupport;

class GhRepositories : public GhTest {
protected:
    static std::vector<std::string> lines(const std::string& text)
    {
        std::istringstream stream(text);
        std::vector<std::string> list;
        for (std::string line; std::getline(stream, line);) {
            list.push_back(line);
        }
        return list;
    }
};

TEST_F(GhRepositories, eachIsALineOfFiveFieldsInTheOrderOfTheNames)
{
    serve("everyday");

    const Result result = repositories();

    ASSERT_EQ(result.status, 0) << result.errors;
    const auto list = lines(result.output);
    ASSERT_THAT(list, SizeIs(5));
    EXPECT_EQ(
        boost::json::parse(list[0]),
        boost::json::parse(R"({"repository": "harbourlight/ferry-api", "visibility": "private",
                               "language": "Go", "default_branch": "main", "archived": false})"));
    EXPECT_EQ(boost::json::parse(list[1]).at("repository"), "harbourlight/ferry-web");
    EXPECT_EQ(boost::json::parse(list[2]).at("repository"), "harbourlight/tide-tables");
    EXPECT_EQ(boost::json::parse(list[3]).at("repository"), "robin-k/dotfiles");
    EXPECT_EQ(
        boost::json::parse(list[4]),
        boost::json::parse(R"({"repository": "robin-k/pocket-atlas", "visibility": "private",
                               "language": null, "default_branch": "master", "archived": true})"));
}

TEST_F(GhRepositories, pagesFollowOneAnotherThroughTheLinkHeader)
{
    serve(SampleGitHub::parseScenario(
        R"({"account": {"login": "robin-k"}, "generated": {"repositories": 230}})"));

    const Result result = repositories();

    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_THAT(lines(result.output), SizeIs(230));
    std::vector<std::string> targets;
    for (const auto& recorded : server().requests()) {
        targets.push_back(recorded.request.target);
    }
    const std::string rest = "affiliation=owner,collaborator,organization_member";
    EXPECT_THAT(
        targets,
        ElementsAre(
            "/user/repos?per_page=100&" + rest,
            "/user/repos?" + rest + "&page=2&per_page=100",
            "/user/repos?" + rest + "&page=3&per_page=100"));
}

TEST_F(GhRepositories, onlyTheAffiliationsAskedForAreListed)
{
    serve("everyday");

    const Result result = gh({"api", "user/repos?affiliation=owner", "--jq", ".[].full_name"});

    EXPECT_THAT(result.output, StrEq("robin-k/dotfiles\nrobin-k/pocket-atlas\n"));
}

TEST_F(GhRepositories, anAccountWithoutRepositoriesGetsNoLines)
{
    serve("empty");

    const Result result = repositories();

    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output, StrEq(""));
}

TEST_F(GhRepositories, aFaultMayStrikeTheSecondPageOnly)
{
    serve(SampleGitHub::parseScenario(
        R"({"account": {"login": "robin-k"}, "generated": {"repositories": 130}})"));
    setFault("server-error@repositories#2");

    const Result result = repositories();

    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, StrEq("gh: Internal Server Error (HTTP 500)\n"));
    EXPECT_THAT(server().requests(), SizeIs(2));
    EXPECT_EQ(repositories().status, 0);
}

TEST_F(GhRepositories, anUnknownAddressIsNotFound)
{
    serve("everyday");

    const Result result = gh({"api", "repos/harbourlight/ferry-api"});

    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, StrEq("gh: Not Found (HTTP 404)\n"));
}

}  // namespace

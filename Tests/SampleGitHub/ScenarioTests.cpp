#include "SampleGitHub/Scenario.h"

#include "PullRequestKit/Errors.h"
#include "SampleGitHub/Rendering.h"
#include "SampleGitHub/SearchQuery.h"
#include "Support/Errors.h"

#include <algorithm>
#include <set>
#include <stdexcept>

namespace {

using namespace SampleGitHub;
using testing::SizeIs;

/// The path that a scenario's error names.
std::string offender(const std::string& text)
{
    return TestSupport::pathOf([&] { parseScenario(text); });
}

TEST(Scenarios, everydayHasFiveRepositoriesUnderTwoOwners)
{
    const Scenario scenario = loadScenario("everyday");

    EXPECT_THAT(scenario.repositories, SizeIs(5));
    EXPECT_THAT(scenario.pullRequests, SizeIs(27));
    std::set<std::string> owners;
    for (const Repository& repository : scenario.repositories) {
        owners.insert(repository.fullName.substr(0, repository.fullName.find('/')));
    }
    EXPECT_THAT(owners, SizeIs(2));
}

TEST(Scenarios, everydayNamesEachPullRequestOnce)
{
    std::set<std::pair<std::string, std::int64_t>> identities;
    for (const PullRequest& pullRequest : loadScenario("everyday").pullRequests) {
        EXPECT_TRUE(identities.emplace(pullRequest.repository, pullRequest.number).second)
            << pullRequest.title;
    }
}

TEST(Scenarios, largeIsTwentyPagesOfAboutOnePointSixMegabytes)
{
    const Scenario scenario = loadScenario("large");

    EXPECT_THAT(scenario.repositories, SizeIs(3000));
    ASSERT_THAT(scenario.pullRequests, SizeIs(1000));
    const auto now = PullRequestKit::parseDate("2026-03-01T12:00:00Z").value();
    std::size_t page = 0;
    for (std::size_t index = 0; index < 50; ++index) {
        page += renderSearchNode(scenario.pullRequests[index], now).size();
    }
    EXPECT_NEAR(static_cast<double>(page), 1.6e6, 0.1e6);
}

TEST(Scenarios, largeIsTheSameEveryTime)
{
    EXPECT_EQ(loadScenario("large"), loadScenario("large"));
}

TEST(Scenarios, involvedConcernsTheUserInEveryPullRequestAndSomebodyElseInSome)
{
    Scenario scenario = loadScenario("involved");
    const auto count = [&](std::string_view text) {
        return search(scenario, parseSearchQuery(text)).size();
    };
    EXPECT_EQ(scenario.pullRequests.size(), 30U);
    EXPECT_EQ(count("is:open review-requested:@me"), 6U);
    EXPECT_EQ(count("is:open author:@me"), 17U);
    EXPECT_EQ(count("is:open reviewed-by:@me -author:@me"), 8U);
    signIn(scenario, "mara");
    EXPECT_EQ(count("is:open review-requested:@me"), 7U);
    EXPECT_EQ(count("is:open author:@me"), 2U);
    EXPECT_EQ(count("is:open reviewed-by:@me -author:@me"), 3U);
}

TEST(Scenarios, nobodyIsSignedInInSignedOut)
{
    EXPECT_FALSE(loadScenario("signed-out").account);
    EXPECT_TRUE(loadScenario("empty").account);
}

TEST(Scenarios, errorsNameThePathOfTheOffendingValue)
{
    EXPECT_EQ(
        offender(R"({"repositories": [{"fullName": "a/b"}, {}]})"), "repositories[1].fullName");
    EXPECT_EQ(offender(R"({"repositories": [{"fullName": "ab"}]})"), "repositories[0].fullName");
    const std::string head = R"({"repositories": [{"fullName": "a/b"}], "pullRequests": [
        {"number": 1, "title": "t", "created": "2d", "head": "h", )";
    EXPECT_EQ(
        offender(head + R"("repository": "a/b", "updated": "soon"}]})"), "pullRequests[0].updated");
    EXPECT_EQ(
        offender(head + R"("repository": "a/b", "updated": "3d"}]})"), "pullRequests[0].updated");
    EXPECT_EQ(
        offender(head + R"("repository": "a/c", "updated": "1d"}]})"),
        "pullRequests[0].repository");
    EXPECT_EQ(
        offender(head + R"("repository": "a/b", "updated": "1d", "checks": [{"state": "X"}]}]})"),
        "pullRequests[0].checks[0]");
    EXPECT_EQ(
        offender(head + R"("repository": "a/b", "updated": "1d", "state": "OPEN"}]})"),
        "pullRequests[0].state");
    EXPECT_EQ(
        offender(
            head + R"("repository": "a/b", "updated": "1d", "threads": 1, "openThreads": 2}]})"),
        "pullRequests[0].openThreads");
    EXPECT_EQ(
        offender(
            head
            + R"("repository": "a/b", "updated": "1d", "reviews": [{"state": "X", "commit": "y"}]}]})"),
        "pullRequests[0].reviews[0].commit");
    EXPECT_EQ(offender(head + R"("repository": "a/b", "updated": "1d"}]})"), "none");
}

TEST(Scenarios, aMissingOneIsRefusedWithASentence)
{
    EXPECT_EQ(
        TestSupport::messageOf([] { loadScenario("nowhere"); }),
        "The scenario nowhere could not be read.");
}

}  // namespace

#include "ProviderTest.h"
#include "Support/Errors.h"

#include <boost/json.hpp>
#include <fstream>
#include <thread>

namespace {

using namespace TestSupport;
using SampleGitHub::RequestKind;

class Provider : public ProviderTest {};

TEST_F(Provider, tellsWhoIsSignedIn)
{
    serveHere("everyday");
    EXPECT_EQ(provider().authenticationStatus({}), AuthenticationStatus(Authenticated{"robin-k"}));
    EXPECT_THAT(
        runner->commands.front(),
        ElementsAre("auth", "status", "--hostname", "github.com", "--active"));
}

TEST_F(Provider, tellsThatNobodyIsSignedIn)
{
    serveHere("signed-out");
    const auto status = provider().authenticationStatus({});
    ASSERT_TRUE(std::holds_alternative<NotAuthenticated>(status));
    EXPECT_THAT(std::get<NotAuthenticated>(status).message, HasSubstr("gh auth login"));
}

TEST_F(Provider, searchesPageByPage)
{
    serveHere("large");
    std::set<std::string> names;
    for (const RepositorySummary& repository : provider().repositories({})) {
        names.insert(repository.fullName);
    }
    EXPECT_EQ(names.size(), 3000U);
    runner->commands.clear();
    // GitHub refuses longer queries; the busy repositories are the first ones.
    const std::set<std::string> busy(names.begin(), std::next(names.begin(), 40));
    const auto found = provider().pullRequests(ReviewerScope::any, busy, {});
    const auto searches = requests(RequestKind::search);
    ASSERT_THAT(searches, Not(IsEmpty()));
    std::string cursor;
    std::size_t hits = 0;
    for (std::size_t page = 0; page < searches.size(); ++page) {
        const auto& arguments = runner->commands[page];
        ASSERT_EQ(arguments.size(), page == 0 ? 6U : 8U);
        EXPECT_EQ(arguments[0], "api");
        EXPECT_EQ(arguments[1], "graphql");
        EXPECT_EQ(arguments[2], "-f");
        EXPECT_THAT(arguments[3], StartsWith("query=query($q:String!, $cursor:String) {\n"));
        EXPECT_EQ(arguments[4], "-f");
        EXPECT_THAT(arguments[5], StartsWith("q=is:pr is:open archived:false repo:"));
        if (page > 0) {
            EXPECT_EQ(arguments[6], "-f");
            EXPECT_THAT(arguments[7], StartsWith("cursor="));
            EXPECT_NE(arguments[7], cursor);
            cursor = arguments[7];
        }
        const auto body = boost::json::parse(searches[page].request.body).as_object();
        EXPECT_EQ("query=" + std::string(body.at("query").as_string()), arguments[3]);
        hits += 50;
    }
    EXPECT_LE(found.size(), hits);
    EXPECT_GT(found.size(), hits - 50);
}

TEST_F(Provider, asksForRulesInBatchesOfFifty)
{
    // Every pull request has a base branch of its own.
    SampleGitHub::Scenario scenario;
    scenario.account = SampleGitHub::Account{"robin-k", {}};
    SampleGitHub::Repository repository;
    repository.fullName = "octo/many";
    for (int number = 1; number <= 120; ++number) {
        SampleGitHub::PullRequest pullRequest;
        pullRequest.repository = repository.fullName;
        pullRequest.number = number;
        pullRequest.title = "Change " + std::to_string(number);
        pullRequest.author = "pia-o";
        pullRequest.created = "2d";
        pullRequest.updated = "1d";
        pullRequest.createdAge = 48h;
        pullRequest.updatedAge = 24h;
        pullRequest.head = "change-" + std::to_string(number);
        pullRequest.base = "target-" + std::to_string(number);
        scenario.pullRequests.push_back(pullRequest);
        repository.branches.push_back({pullRequest.base, number % 3 + 1, {}});
    }
    scenario.repositories.push_back(repository);
    serveHere(scenario);
    auto asked = provider();
    const auto found = asked.pullRequests(ReviewerScope::any, {"octo/many"}, {});
    ASSERT_THAT(found, SizeIs(120));
    for (const PullRequest& pullRequest : found) {
        EXPECT_EQ(pullRequest.requiredApprovingReviewCount, pullRequest.id.number % 3 + 1);
    }
    std::vector<std::size_t> batches;
    for (const auto& recorded : requests(RequestKind::rules)) {
        const auto body = boost::json::parse(recorded.request.body);
        batches.push_back(body.at("variables").at("ids").as_array().size());
    }
    EXPECT_THAT(batches, ElementsAre(50U, 50U, 20U));

    server().forgetRequests();
    now += 299s;
    asked.pullRequests(ReviewerScope::any, {"octo/many"}, {});
    EXPECT_THAT(requests(RequestKind::rules), SizeIs(0));
    now += 1s;
    asked.pullRequests(ReviewerScope::any, {"octo/many"}, {});
    EXPECT_THAT(requests(RequestKind::rules), SizeIs(3));
}

TEST_F(Provider, tracesASearchInTheLog)
{
    serveHere("everyday");
    provider().pullRequests(ReviewerScope::myself, {"harbourlight/ferry-web"}, {});
    ASSERT_THAT(log, SizeIs(3));
    EXPECT_EQ(
        log[0],
        "Tarnwick GitHub search: query=is:pr review-requested:@me is:open archived:false "
        "repo:harbourlight/ferry-web sort:updated-desc");
    EXPECT_THAT(
        log[1],
        MatchesRegex("Tarnwick GitHub search: page=1 duration=[0-9.e-]+ seconds bytes=[0-9]+ "
                     "nodes=3 matches=3 next=false"));
    EXPECT_THAT(
        log[2],
        MatchesRegex("Tarnwick GitHub search: total=[0-9.e-]+ seconds pages=1 nodes=3 "
                     "uniqueBaseRefs=2"));
}

TEST_F(Provider, endsAWaitingRequestWhenItIsCancelled)
{
    serveHere("everyday");
    setFault("delay=60000@search");
    std::stop_source source;
    const std::jthread canceller([&] {
        while (requests(RequestKind::search).empty()) {
            std::this_thread::yield();
        }
        source.request_stop();
    });
    EXPECT_THROW(
        provider().pullRequests(ReviewerScope::any, {"harbourlight/ferry-web"}, source.get_token()),
        CancellationError);
}

/// Programs that stand where `gh` should be.
class StrangeGh : public Provider {
protected:
    GitHub::GitHubProvider providerOf(
        const std::string& script, std::chrono::milliseconds timeout = 30s)
    {
        auto file = folder() / "gh";
        std::ofstream(file) << "#!/bin/sh\n" << script << "\n";
        std::filesystem::permissions(file, std::filesystem::perms::owner_all);
        return {
            GitHub::publicHost,
            [file] { return file; },
            std::make_shared<GitHub::ProcessCommandRunner>(timeout),
            [](const std::string&) {}};
    }

    static std::string problem(const GitHub::GitHubProvider& provider)
    {
        return messageOf([&] { provider.pullRequests(ReviewerScope::any, {"octo/tools"}, {}); });
    }
};

TEST_F(StrangeGh, thatIsMissingIsSaidToBe)
{
    const GitHub::GitHubProvider missing(
        GitHub::publicHost, [] { return std::nullopt; }, runner, [](const std::string&) {});
    EXPECT_EQ(problem(missing), "GitHub CLI (gh) was not found.");
    EXPECT_EQ(
        missing.authenticationStatus({}),
        AuthenticationStatus(
            Unavailable{"GitHub CLI (gh) was not found. Install it, then run gh auth login."}));
}

TEST_F(StrangeGh, thatFailsIsQuoted)
{
    EXPECT_EQ(problem(providerOf("echo '  unknown flag: -F ' >&2; exit 1")), "unknown flag: -F");
    EXPECT_EQ(problem(providerOf("exit 1")), "gh could not load pull requests.");
}

TEST_F(StrangeGh, thatIsKilledIsAFailure)
{
    EXPECT_EQ(problem(providerOf("kill -KILL $$")), "gh could not load pull requests.");
}

TEST_F(StrangeGh, thatHangsIsEnded)
{
    EXPECT_EQ(problem(providerOf("exec sleep 60", 100ms)), "GitHub CLI request timed out.");
    EXPECT_EQ(
        providerOf("exec sleep 60", 100ms).authenticationStatus({}),
        AuthenticationStatus(
            Unavailable{"Could not run gh auth status: GitHub CLI request timed out."}));
}

TEST_F(StrangeGh, thatBabblesIsNotUnderstood)
{
    EXPECT_THAT(problem(providerOf("echo Welcome!")), HasSubstr("is not JSON"));
    EXPECT_THAT(problem(providerOf("exit 0")), HasSubstr("is not JSON"));
    EXPECT_THAT(problem(providerOf("printf '{\"data\": \"\\377\"}'")), HasSubstr("is not JSON"));
    EXPECT_THAT(problem(providerOf("printf '{\"data\": 1}'")), HasSubstr("data is not an object"));
    EXPECT_THAT(
        problem(providerOf("head -c 100000 /dev/zero | tr '\\0' '['")), HasSubstr("is not JSON"));
}

TEST_F(StrangeGh, thatPrintsWithoutEndIsRefused)
{
    EXPECT_THAT(problem(providerOf("head -c 209715200 /dev/zero")), HasSubstr("64 MiB"));
}

}  // namespace

#include "GitHubProvider/FailedLogin.h"

#include "ProviderTest.h"
#include "PullRequestKit/Errors.h"

#include <cstdlib>
#include <ctime>
#include <system_error>
#include <vector>

namespace {

using namespace TestSupport;

using Arguments = std::vector<std::string>;

constexpr const char* unreachable = "GitHub cannot be reached.";
constexpr const char* usedUp = "GitHub's limit for your account is used up.";

/// 2026-03-01T12:00:00Z.
constexpr std::chrono::system_clock::time_point noon{std::chrono::seconds{1'772'366'400}};
constexpr std::int64_t twentyPastTwo = 1'772'374'800;  // 14:20 UTC.

/// Until its end, local times are those of this zone.
class LocalZone {
public:
    explicit LocalZone(const char* zone)
    {
        if (const char* const before = std::getenv("TZ")) {
            _before = before;
        }
        setenv("TZ", zone, 1);
        tzset();
    }

    LocalZone(const LocalZone&) = delete;
    LocalZone& operator=(const LocalZone&) = delete;

    ~LocalZone()
    {
        _before ? setenv("TZ", _before->c_str(), 1) : unsetenv("TZ");
        tzset();
    }

private:
    std::optional<std::string> _before;
};

std::string limits(std::int64_t core, std::int64_t graphql, std::int64_t reset)
{
    const auto limit = [](const char* name, std::int64_t remaining, std::int64_t end) {
        return "\"" + std::string(name) + R"(":{"limit":5000,"used":1,"remaining":)"
               + std::to_string(remaining) + R"(,"reset":)" + std::to_string(end) + "}";
    };
    return R"({"resources":{)" + limit("core", core, reset) + "," + limit("search", 0, reset + 9000)
           + "," + limit("graphql", graphql, reset) + "}," + limit("rate", core, reset) + "}";
}

std::optional<std::string> obstacle(std::int32_t status, std::string output, std::string errors)
{
    return GitHub::obstacle({status, std::move(output), std::move(errors)}, noon);
}

TEST(FailedLogin, isExplainedByALimitThatIsUsedUpInLocalTime)
{
    const LocalZone zone("UTC");
    constexpr const char* until = "GitHub's limit for your account is used up until 14:20.";
    EXPECT_EQ(obstacle(0, limits(0, 4000, twentyPastTwo), ""), until);
    EXPECT_EQ(obstacle(0, limits(4000, 0, twentyPastTwo), ""), until);
    EXPECT_EQ(obstacle(0, limits(-1, 0, twentyPastTwo), ""), until);
    const LocalZone further("CET-1");
    EXPECT_EQ(
        obstacle(0, limits(0, 4000, twentyPastTwo), ""),
        "GitHub's limit for your account is used up until 15:20.");
}

TEST(FailedLogin, namesTheTimeWhenTheLastLimitEnds)
{
    const LocalZone zone("UTC");
    EXPECT_EQ(
        obstacle(
            0,
            R"({"resources":{"core":{"remaining":0,"reset":1772371200},)"
            R"("graphql":{"remaining":0,"reset":1772374800}}})",
            ""),
        "GitHub's limit for your account is used up until 14:20.");
}

TEST(FailedLogin, namesNoTimeThatCannotBeTheEnd)
{
    for (const std::int64_t reset :
         {std::int64_t{0},
          std::int64_t{1'772'366'400},
          twentyPastTwo + 86'400,
          std::int64_t{-1},
          INT64_MAX,
          INT64_MIN}) {
        EXPECT_EQ(obstacle(0, limits(0, 0, reset), ""), usedUp) << reset;
    }
}

TEST(FailedLogin, isTheLoginsOwnFaultWhenRequestsRemain)
{
    EXPECT_EQ(obstacle(0, limits(1, 1, twentyPastTwo), ""), std::nullopt);
}

TEST(FailedLogin, stayWhereTheAnswerCannotBeUnderstood)
{
    for (const char* const output :
         {"",
          "{}",
          "null",
          "[]",
          "<html>",
          R"({"resources":{}})",
          R"({"resources":null})",
          R"({"resources":{"core":{"remaining":"none","reset":1}}})",
          R"({"resources":{"core":{"remaining":0}}})",
          "\xFF"}) {
        EXPECT_EQ(obstacle(0, output, ""), std::nullopt) << output;
    }
}

struct AnswerCase {
    const char* name;
    const char* errors;
    std::optional<std::string> expected;
};

// As gh 2.23 and 2.46 print them.
TEST(RefusedQuestion, isJudgedByWhatGhPrints)
{
    const std::vector<AnswerCase> cases{
        {"badToken", "gh: Bad credentials (HTTP 401)\n", std::nullopt},
        {"noToken", "To get started with GitHub CLI, please run:  gh auth login\n", std::nullopt},
        {"limit", "gh: API rate limit exceeded for user ID 583231. (HTTP 403)\n", usedUp},
        {"secondaryLimit", "gh: You have exceeded a secondary rate limit. (HTTP 403)\n", usedUp},
        {"tooMany", "gh: Too Many Requests (HTTP 429)\n", usedUp},
        {"suspended", "gh: Sorry. Your account was suspended. (HTTP 403)\n", std::nullopt},
        {"serverError", "gh: Server Error (HTTP 500)\n", std::nullopt},
        {"badGateway", "gh: Bad Gateway (HTTP 502)\n", unreachable},
        {"unavailable", "gh: Service Unavailable (HTTP 503)\n", unreachable},
        {"gatewayTimeOut", "gh: Gateway Timeout (HTTP 504)\n", unreachable},
        {"unknownHost",
         "error connecting to api.github.com\n"
         "check your internet connection or https://githubstatus.com\n",
         unreachable},
        {"connectionRefused",
         "Get \"https://api.github.com/rate_limit\": proxyconnect tcp: dial tcp 127.0.0.1:9: "
         "connect: connection refused\n",
         unreachable},
        {"noTls",
         "Get \"https://api.github.com/rate_limit\": tls: first record does not look like a TLS "
         "handshake\n",
         unreachable},
        {"foreignCertificate",
         "Get \"https://api.github.com/rate_limit\": tls: failed to verify certificate: x509: "
         "certificate is not valid for any names, but wanted to match api.github.com\n",
         unreachable},
        {"connectionEnds", "Get \"https://api.github.com/rate_limit\": EOF\n", unreachable},
        {"connectionEndsInTheAnswer", "unexpected EOF\n", unreachable},
        {"proxyWantsAPassword",
         "Get \"https://api.github.com/rate_limit\": Proxy Authentication Required\n",
         unreachable},
        {"something", "something else\n", std::nullopt},
        {"silence", "", std::nullopt}};
    for (const AnswerCase& each : cases) {
        SCOPED_TRACE(each.name);
        EXPECT_EQ(obstacle(1, "", each.errors), each.expected);
    }
}

TEST(FailedLogin, ofNobodyIsNotLookedInto)
{
    using GitHub::saysNotLoggedIn;
    EXPECT_TRUE(saysNotLoggedIn("You are not logged into any GitHub hosts. Run gh auth login."));
    EXPECT_TRUE(saysNotLoggedIn("You are not logged into any accounts on github.com"));
    EXPECT_TRUE(
        saysNotLoggedIn("Hostname \"git.example\" not found among authenticated GitHub hosts"));
    EXPECT_FALSE(saysNotLoggedIn("X github.com: authentication failed"));
    EXPECT_FALSE(saysNotLoggedIn("X Failed to log in to github.com account octo"));
}

class LoginQuestion : public ProviderTest {
protected:
    AuthenticationStatus status() { return provider->authenticationStatus(stop.get_token()); }

    void failLogin()
    {
        runner->ends(1, "", "git.example\n  X git.example: authentication failed\n");
    }

    const AuthenticationStatus asToday =
        NotAuthenticated{"git.example\n  X git.example: authentication failed"};

    /// Which problem it is, where signing in again would not help.
    std::optional<std::string> problemOfTheService()
    {
        const AuthenticationStatus known = status();
        const auto* const problem = std::get_if<Unavailable>(&known);
        return problem != nullptr && problem->isServiceOutOfReach ? std::optional(problem->message)
                                                                  : std::nullopt;
    }
};

TEST_F(LoginQuestion, isAskedOnceAboutTheSameHost)
{
    failLogin();
    runner->ends(1, "", "error connecting to git.example\n");
    EXPECT_EQ(problemOfTheService(), unreachable);
    EXPECT_THAT(
        runner->argumentLists(),
        ElementsAre(
            Arguments{"auth", "status", "--hostname", "git.example", "--active"},
            Arguments{"api", "--hostname", "git.example", "rate_limit"}));
}

TEST_F(LoginQuestion, isAskedAfterAnOlderGhSaysThatTheLoginFailed)
{
    runner->ends(1, "", "unknown flag: --active\n");
    runner->prints("git.example\n  X Failed to log in to git.example account octo\n");
    runner->ends(1, "", "gh: Too Many Requests (HTTP 429)\n");
    EXPECT_EQ(problemOfTheService(), usedUp);
}

TEST_F(LoginQuestion, isNotAskedWhereNobodyIsSignedIn)
{
    runner->ends(1, "", "You are not logged into any GitHub hosts.\n");
    EXPECT_EQ(
        status(),
        AuthenticationStatus(NotAuthenticated{"You are not logged into any GitHub hosts."}));
    runner->ends(1, "", "");
    EXPECT_EQ(status(), AuthenticationStatus(NotAuthenticated{"GitHub CLI is not logged in."}));
    EXPECT_EQ(runner->calls().size(), 2U);
}

TEST_F(LoginQuestion, leavesALoginThatIsAtFaultAsItWas)
{
    failLogin();
    runner->ends(1, "", "gh: Bad credentials (HTTP 401)\n");
    EXPECT_EQ(status(), asToday);
    failLogin();
    runner->prints(limits(4999, 5000, twentyPastTwo));
    EXPECT_EQ(status(), asToday);
}

TEST_F(LoginQuestion, takesATimeOutForGitHubBeingOutOfReach)
{
    failLogin();
    runner->fails(ProviderError("GitHub CLI request timed out."));
    EXPECT_EQ(problemOfTheService(), unreachable);
}

TEST_F(LoginQuestion, isNotAskedAfterATimeOutWhichIsNoFaultOfTheLoginEither)
{
    runner->fails(ProviderError("GitHub CLI request timed out."));
    EXPECT_EQ(problemOfTheService(), "Could not run gh auth status: GitHub CLI request timed out.");
    const std::system_error error(std::make_error_code(std::errc::permission_denied), "gh");
    runner->fails(error);
    EXPECT_EQ(problemOfTheService(), std::nullopt);
    provider = makeProvider(std::nullopt);
    EXPECT_EQ(problemOfTheService(), std::nullopt);
}

TEST_F(LoginQuestion, leavesTheStatusWhereItCannotBeAsked)
{
    failLogin();
    runner->fails(ProviderError("A pipe failed."));
    EXPECT_EQ(status(), asToday);
    failLogin();
    const std::system_error error(std::make_error_code(std::errc::permission_denied), "gh");
    runner->fails(error);
    EXPECT_EQ(status(), asToday);
}

TEST_F(LoginQuestion, thatIsCancelledEndsAsACancelledLoginDoes)
{
    failLogin();
    runner->fails(CancellationError());
    EXPECT_EQ(
        status(),
        AuthenticationStatus(
            Unavailable{"Could not run gh auth status: The operation was cancelled."}));
}

}  // namespace

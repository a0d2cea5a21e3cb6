#include "GitHubProvider/Authentication.h"

#include "ProviderTest.h"
#include "PullRequestKit/Errors.h"

#include <system_error>
#include <vector>

namespace {

using namespace TestSupport;
using GitHub::accountName;

using Arguments = std::vector<std::string>;

const Arguments activeArguments{"auth", "status", "--hostname", "git.example", "--active"};
const Arguments olderArguments{"auth", "status", "--hostname", "git.example"};

constexpr const char* unknownFlag = "unknown flag: --active\n\nUsage:  gh auth status [flags]\n";

class Authentication : public ProviderTest {
protected:
    AuthenticationStatus status() { return provider->authenticationStatus(stop.get_token()); }
};

AuthenticationStatus authenticated(std::optional<std::string> account)
{
    return Authenticated{std::move(account)};
}

AuthenticationStatus notAuthenticated(std::string message)
{
    return NotAuthenticated{std::move(message)};
}

AuthenticationStatus unavailable(std::string message)
{
    return Unavailable{std::move(message)};
}

TEST_F(Authentication, withoutGhIsUnavailableAndNothingIsRun)
{
    provider = makeProvider(std::nullopt);
    EXPECT_EQ(
        status(),
        unavailable("GitHub CLI (gh) was not found. Install it, then run gh auth login."));
    EXPECT_THAT(runner->calls(), IsEmpty());
}

TEST_F(Authentication, looksForGhAgainWhileItIsNotThereAndNoLongerThen)
{
    provider = makeProvider(std::nullopt);
    EXPECT_TRUE(std::holds_alternative<Unavailable>(status()));
    EXPECT_TRUE(std::holds_alternative<Unavailable>(status()));
    executable = "/usr/local/bin/gh";
    runner->prints("Logged in to git.example account octo\n");
    EXPECT_EQ(status(), authenticated("octo"));
    runner->prints("Logged in to git.example account octo\n");
    EXPECT_EQ(status(), authenticated("octo"));
    EXPECT_EQ(runner->calls().back().executable, "/usr/local/bin/gh");
    EXPECT_EQ(looks, 3);
}

TEST_F(Authentication, looksForGhAgainWhenItCouldNotBeStarted)
{
    runner->fails(std::system_error(ENOENT, std::generic_category(), "Could not start /opt/gh"));
    EXPECT_EQ(
        status(),
        unavailable("Could not run gh auth status: Could not start /opt/gh: No such file or "
                    "directory"));
    executable = "/usr/bin/gh";
    runner->prints("Logged in to git.example account octo\n");
    EXPECT_EQ(status(), authenticated("octo"));
    EXPECT_EQ(runner->calls().back().executable, "/usr/bin/gh");
}

TEST_F(Authentication, asksForTheActiveAccountOfTheHost)
{
    runner->prints("git.example\n  ✓ Logged in to git.example account octo (keyring)\n");
    EXPECT_EQ(status(), authenticated("octo"));
    EXPECT_THAT(runner->calls(), ElementsAre(ScriptedRunner::Call{"/opt/gh", activeArguments}));
    EXPECT_EQ(runner->lastToken(), stop.get_token());
}

TEST_F(Authentication, readsTheAccountFromEitherStream)
{
    runner->prints("git.example\n", "Logged in to git.example account octo (keyring)\n");
    EXPECT_EQ(status(), authenticated("octo"));
}

TEST_F(Authentication, readsStandardOutputBeforeStandardError)
{
    runner->prints("Logged in to git.example account octo\n", "account cat\n");
    EXPECT_EQ(status(), authenticated("octo"));
    // One text, so a line that the first stream leaves open goes on in the second.
    runner->prints("Logged in to git.example account ", "octo (keyring)\n");
    EXPECT_EQ(status(), authenticated("octo"));
}

TEST_F(Authentication, exitZeroWithoutAccountInTheOutputIsAuthenticatedWithNoAccount)
{
    runner->prints("Logged in.\n");
    EXPECT_EQ(status(), authenticated(std::nullopt));
}

TEST_F(Authentication, exitOneWithEmptyStandardErrorIsNotLoggedIn)
{
    runner->ends(1, "this is not looked at", " \n");
    EXPECT_EQ(status(), notAuthenticated("GitHub CLI is not logged in."));
}

TEST_F(Authentication, exitOneShowsTheTrimmedStandardError)
{
    runner->ends(1, "", "\n You are not logged into any GitHub hosts.\nRun gh auth login \xFF\n\n");
    EXPECT_EQ(
        status(),
        notAuthenticated(
            "You are not logged into any GitHub hosts.\nRun gh auth login \xEF\xBF\xBD"));
}

TEST_F(Authentication, aTimeOutIsUnavailableWithTheErrorsText)
{
    runner->fails(ProviderError("GitHub CLI request timed out."));
    EXPECT_EQ(status(), unavailable("Could not run gh auth status: GitHub CLI request timed out."));
}

TEST_F(Authentication, aLaunchErrorIsUnavailableWithTheErrorsText)
{
    const std::system_error error(
        std::make_error_code(std::errc::permission_denied), "gh could not be started");
    runner->fails(error);
    EXPECT_EQ(
        status(),
        unavailable("Could not run gh auth status: gh could not be started: Permission denied"));
}

TEST_F(Authentication, cancellationIsUnavailableWithTheErrorsText)
{
    runner->fails(CancellationError());
    EXPECT_EQ(status(), unavailable("Could not run gh auth status: The operation was cancelled."));
}

TEST_F(Authentication, onlyTheUnknownFlagIsAskedAgainWithoutIt)
{
    runner->ends(1, "", unknownFlag);
    runner->prints("", "git.example\n  ✓ Logged in to git.example as octo (oauth_token)\n");
    EXPECT_EQ(status(), authenticated("octo"));
    EXPECT_THAT(runner->argumentLists(), ElementsAre(activeArguments, olderArguments));
}

TEST_F(Authentication, theUnknownFlagWithAnotherStatusIsAFailureLikeAnyOther)
{
    runner->ends(2, "", unknownFlag);
    EXPECT_EQ(
        status(), notAuthenticated("unknown flag: --active\n\nUsage:  gh auth status [flags]"));
}

struct OlderCase {
    const char* name;
    std::int32_t status;
    const char* standardOutput;
    const char* standardError;
    AuthenticationStatus expected;
};

TEST_F(Authentication, anOlderGhAnswersWithoutTheFlag)
{
    const std::vector<OlderCase> cases{
        {"asNameOnStandardOutput",
         0,
         "git.example\n  ✓ Logged in to git.example as octo (GH_TOKEN)\n",
         "",
         authenticated("octo")},
        {"accountNameOnStandardError",
         0,
         "",
         "git.example\n  ✓ Logged in to git.example account octo (keyring)\n",
         authenticated("octo")},
        {"accountNameOnStandardOutput",
         0,
         "git.example\n  ✓ Logged in to git.example account octo (keyring)\n",
         "",
         authenticated("octo")},
        {"noName", 0, "used as before\n", "", authenticated(std::nullopt)},
        {"badLoginWithExitZero",
         0,
         "git.example\n  X Failed to log in to git.example account octo (keyring)\n"
         "  - The token is invalid.\n",
         "",
         notAuthenticated("git.example\n  X Failed to log in to git.example account octo "
                          "(keyring)\n  - The token is invalid.")},
        {"badLoginWithExitZeroOnStandardError",
         0,
         "",
         "X Failed to log in to git.example using token (GH_TOKEN)\n",
         notAuthenticated("X Failed to log in to git.example using token (GH_TOKEN)")},
        {"badLoginOfAnotherThanTheActiveAccount",
         0,
         "✓ Logged in to git.example account octo (keyring)\n"
         "X Failed to log in to git.example account cat (keyring)\n",
         "",
         authenticated("octo")},
        {"signedOut",
         1,
         "",
         "You are not logged into any GitHub hosts. Run gh auth login to authenticate.\n",
         notAuthenticated("You are not logged into any GitHub hosts. Run gh auth login to "
                          "authenticate.")},
        {"signedOutOnStandardOutput",
         1,
         "X git.example: authentication failed\n",
         "",
         notAuthenticated("X git.example: authentication failed")},
        {"silence", 1, "", "", notAuthenticated("GitHub CLI is not logged in.")}};
    for (const OlderCase& each : cases) {
        SCOPED_TRACE(each.name);
        runner->ends(1, "", unknownFlag);
        runner->ends(each.status, each.standardOutput, each.standardError);
        EXPECT_EQ(status(), each.expected);
    }
}

TEST_F(Authentication, aFailureOfTheSecondRunIsUnavailableToo)
{
    runner->ends(1, "", unknownFlag);
    runner->fails(ProviderError("GitHub CLI request timed out."));
    EXPECT_EQ(status(), unavailable("Could not run gh auth status: GitHub CLI request timed out."));
}

TEST(AccountName, isTheWordAfterAccount)
{
    EXPECT_EQ(accountName("Logged in to the host account octo (keyring)"), "octo");
    EXPECT_EQ(accountName("account   octo\nmore"), "octo");
    EXPECT_EQ(accountName("account octo account cat"), "octo");
}

TEST(AccountName, accountInCapitalsMatches)
{
    EXPECT_EQ(accountName("ACCOUNT alice"), "alice");
    EXPECT_EQ(accountName("aCCount alice"), "alice");
}

TEST(AccountName, isAbsentWithoutTheWordOrANameAfterIt)
{
    EXPECT_EQ(accountName(""), std::nullopt);
    EXPECT_EQ(accountName("accounts are nice"), std::nullopt);
    EXPECT_EQ(accountName("account\nocto"), std::nullopt);
    EXPECT_EQ(accountName("the account "), std::nullopt);
    EXPECT_EQ(accountName("the account  \n\t"), std::nullopt);
}

TEST(AccountName, endsAtAnyWhiteSpace)
{
    EXPECT_EQ(accountName("account octo\u00A0cat"), "octo");
    EXPECT_EQ(accountName("account 日本\u2028cat"), "日本");
}

}  // namespace

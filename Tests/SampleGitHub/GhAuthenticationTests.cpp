#include "GhTest.h"

namespace {

using namespace TestSupport;

class GhAuthentication : public GhTest {};

TEST_F(GhAuthentication, aSignedInUserIsNamed)
{
    serve("everyday");

    const Result result = status();

    EXPECT_EQ(result.status, 0);
    EXPECT_THAT(result.output + result.errors, HasSubstr("Logged in to github.com"));
    EXPECT_THAT(result.output + result.errors, HasSubstr(" robin-k "));
    EXPECT_THAT(result.output + result.errors, HasSubstr("read:org"));
}

TEST_F(GhAuthentication, nobodyIsSignedInInTheScenarioSignedOut)
{
    serve("signed-out");

    const Result result = status();

    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("not logged into any"));
    EXPECT_TRUE(server().requests().empty());
}

TEST_F(GhAuthentication, aRefusedTokenIsReported)
{
    serve("everyday");
    setFault("unauthorized@authentication");

    const Result result = status();

    const std::string text = result.output + result.errors;
    EXPECT_THAT(text, HasSubstr("gh auth login -h github.com"));
    // So it says from 2.40 on, and until 2.53 it ends with 0 all the same.
    if (text.find("Failed to log in to github.com account robin-k") == std::string::npos) {
        EXPECT_THAT(text, HasSubstr("github.com: authentication failed"));
        EXPECT_EQ(result.status, 1);
    }
}

TEST_F(GhAuthentication, theRequestsAreOfTheKindAuthentication)
{
    serve("everyday");

    ASSERT_EQ(status().status, 0);

    const auto requests = server().requests();
    ASSERT_FALSE(requests.empty());
    for (const auto& recorded : requests) {
        EXPECT_EQ(recorded.kind, SampleGitHub::RequestKind::authentication);
        EXPECT_EQ(recorded.request.headers.at("host"), "api.github.com");
        EXPECT_FALSE(recorded.request.headers.contains("authorization"));
    }
}

TEST_F(GhAuthentication, anotherTokenIsRefused)
{
    serve("everyday");
    auto environment = this->environment();
    environment["GH_TOKEN"] = "gho_somebodyElse";

    const Result result = runProgram("gh", {"api", "user/repos"}, environment, folder());

    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("Bad credentials (HTTP 401)"));
}

}  // namespace

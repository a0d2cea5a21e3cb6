#include "TarnwickTest.h"

namespace {

using namespace TestSupport;

/// What goes wrong between GitHub and `gh`, and what the user reads then.
struct Failure {
    const char* fault;
    const char* state;    ///< Without a snapshot.
    const char* message;  ///< What the message contains.
};

class Faults
    : public TarnwickTest
    , public testing::WithParamInterface<Failure> {
protected:
    void SetUp() override
    {
        serve("everyday");
        select("harbourlight/ferry-api, harbourlight/tide-tables");
    }
};

TEST_P(Faults, endInAStateThatSaysWhatIsWrong)
{
    setFault(GetParam().fault);
    const auto result = tarnwick({"list", "--json"});
    EXPECT_EQ(result.status, 1);
    const auto list = boost::json::parse(result.output).as_object();
    EXPECT_EQ(list.at("state"), GetParam().state);
    EXPECT_THAT(std::string(list.at("message").as_string()), HasSubstr(GetParam().message));
    EXPECT_THAT(list.at("rows").as_array(), SizeIs(0));
    EXPECT_FALSE(std::filesystem::exists(cacheFile()));
}

TEST_P(Faults, keepTheLastResultInSight)
{
    const auto good = listJson();
    const std::string cache = readFile(cacheFile());
    setFault(GetParam().fault);
    const auto result = tarnwick({"list", "--json"});
    EXPECT_EQ(result.status, 1);
    const auto list = boost::json::parse(result.output).as_object();
    EXPECT_EQ(list.at("state"), "loaded");
    EXPECT_THAT(
        std::string(list.at("refreshError").as_string()),
        AllOf(StartsWith("Showing cached data: "), HasSubstr(GetParam().message)));
    EXPECT_EQ(outline(list), outline(good));
    EXPECT_EQ(readFile(cacheFile()), cache);
}

INSTANTIATE_TEST_SUITE_P(
    OfGitHub,
    Faults,
    testing::Values(
        Failure{"unauthorized@search", "failed", "401"},
        Failure{"rate-limit@search", "failed", "rate limit"},
        Failure{"server-error@search", "failed", "500"},
        Failure{"server-error@rules", "failed", "500"},
        Failure{"server-error@repositories", "failed", "500"},
        Failure{"unauthorized@authentication", "signedOut", "gh auth login -h github.com"},
        Failure{"server-error@authentication", "signedOut", "gh auth login -h github.com"},
        Failure{
            "rate-limit@authentication",
            "unavailable",
            "GitHub's limit for your account is used up."},
        Failure{
            "used-up=1200@authentication",
            "unavailable",
            "GitHub's limit for your account is used up until "},
        Failure{"hang-up@authentication", "unavailable", "GitHub cannot be reached."},
        Failure{"errors@search", "failed", ""},
        Failure{"errors-only@search", "failed", ""},
        Failure{"errors@rules", "failed", ""},
        Failure{"cut-off@search", "failed", "unexpected EOF"},
        Failure{"cut-off@repositories", "failed", "unexpected EOF"},
        Failure{"truncated@search", "failed", "unexpected end of JSON input"},
        Failure{
            "no-cursor@search", "failed", "GitHub returned a page without a continuation cursor."},
        Failure{"null-nodes@search", "failed", "data.search.nodes[0] is not an object"},
        Failure{"missing-data@search", "failed", "GitHub returned no pull-request data."},
        Failure{"empty-body@search", "failed", ""},
        Failure{"not-json@search", "failed", ""},
        Failure{"wrong-type@search", "failed", "data.search."},
        Failure{"padding=65@search", "failed", "64 MiB"}));

class HarmlessFaults : public TarnwickTest {};

TEST_F(HarmlessFaults, hitsThatAreNoPullRequestsAreDropped)
{
    serve("everyday");
    select("harbourlight/tide-tables");
    setFault("foreign-nodes@search");
    const auto list = listJson();
    EXPECT_EQ(list.at("state"), "loaded");
    EXPECT_THAT(list.at("rows").as_array(), SizeIs(0));
}

TEST_F(HarmlessFaults, rulesThatGitHubDoesNotTellLeaveTheCountsOut)
{
    serve("everyday");
    select("harbourlight/ferry-api");
    setFault("null-nodes@rules");
    const auto list = listJson();
    EXPECT_EQ(list.at("state"), "loaded");
    EXPECT_GT(list.at("rows").as_array().size(), 0U);
    for (const auto& row : list.at("rows").as_array()) {
        EXPECT_FALSE(row.at("pullRequest").as_object().contains("requiredApprovingReviewCount"));
    }
}

TEST_F(HarmlessFaults, aSlowAnswerIsWaitedFor)
{
    serve("everyday");
    select("harbourlight/tide-tables");
    setFault("delay=300@search");
    EXPECT_EQ(listJson().at("state"), "loaded");
}

}  // namespace

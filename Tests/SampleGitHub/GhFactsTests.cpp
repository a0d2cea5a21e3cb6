#include "GhTest.h"

namespace {

using testing::HasSubstr;

/// What `gh` prints when pull requests are asked for by their names.
class GhFacts : public GhTest {
protected:
    Result facts(const std::string& rows, const std::string& fields) const
    {
        return gh(
            {"api",
             "graphql",
             "-f",
             "query=query {\n" + rows
                 + "  rateLimit { cost limit remaining resetAt }\n}\nfragment facts on "
                   "PullRequest {\n"
                 + fields + "}"});
    }

    /// The row of an alias.
    static std::string row(
        const std::string& alias, const std::string& owner, const std::string& name, int number)
    {
        return "  " + alias + ": repository(owner:\"" + owner + "\", name:\"" + name
               + "\") { nameWithOwner pullRequest(number:" + std::to_string(number)
               + ") { ...facts } }\n";
    }
};

TEST_F(GhFacts, areThoseOfTheScenario)
{
    serve("involved");
    const Result result = facts(
        row("a", "northmere", "quay", 482) + row("b", "saltmarsh", "tide-watch", 1190),
        "  viewerLatestReview { state submittedAt }\n  autoMergeRequest { enabledAt }\n"
        "  stack { number size }\n");
    EXPECT_EQ(result.status, 0) << result.errors;
    const auto body = boost::json::parse(result.output);
    EXPECT_EQ(at(body, "/data/a/nameWithOwner"), "northmere/quay");
    EXPECT_EQ(at(body, "/data/a/pullRequest/viewerLatestReview/state"), "COMMENTED");
    EXPECT_EQ(
        at(body, "/data/a/pullRequest/viewerLatestReview/submittedAt"), "2026-02-27T12:00:00Z");
    EXPECT_EQ(at(body, "/data/a/pullRequest/stack/size"), 3);
    EXPECT_TRUE(at(body, "/data/a/pullRequest/autoMergeRequest").is_null());
    EXPECT_EQ(at(body, "/data/b/nameWithOwner"), "saltmarsh/tidewatch");
    EXPECT_TRUE(at(body, "/data/b/pullRequest/autoMergeRequest").is_object());
    EXPECT_FALSE(at(body, "/data/a/pullRequest").as_object().contains("headRefOid"));
    EXPECT_EQ(at(body, "/data/rateLimit/cost"), 1);
    EXPECT_EQ(at(body, "/data/rateLimit/resetAt"), "2026-03-01T13:00:00Z");
    EXPECT_EQ(server().requests().back().kind, SampleGitHub::RequestKind::facts);
}

TEST_F(GhFacts, ofWhatIsNotThereAreNullBesideAnError)
{
    serve("involved");
    const Result result = facts(
        row("a", "northmere", "quay", 4) + row("b", "no\\\"(}", "thing", 7)
            + row("c", "northmere", "quay", 482),
        "  headRefOid\n");
    EXPECT_EQ(result.status, 1);
    const auto body = boost::json::parse(result.output);
    EXPECT_TRUE(at(body, "/data/a/pullRequest").is_null());
    EXPECT_TRUE(at(body, "/data/b").is_null());
    EXPECT_TRUE(at(body, "/data/c/pullRequest/headRefOid").is_string());
    EXPECT_EQ(
        result.errors,
        "gh: Could not resolve to a PullRequest with the number of 4.\n"
        "Could not resolve to a Repository with the name 'no\"(}/thing'.\n");
}

TEST_F(GhFacts, thatAreNotKnownAreErrorsWithoutData)
{
    gitHubOptions().withoutFields = {"stack", "rateLimit"};
    serve("involved");
    const Result result =
        facts(row("a", "northmere", "quay", 482), "  stack { number size }\n  moon\n");
    EXPECT_EQ(result.status, 1);
    EXPECT_FALSE(boost::json::parse(result.output).as_object().contains("data"));
    EXPECT_EQ(
        result.errors,
        "gh: Field 'stack' doesn't exist on type 'PullRequest'\n"
        "Field 'moon' doesn't exist on type 'PullRequest'\n"
        "Field 'rateLimit' doesn't exist on type 'Query'\n");
}

TEST_F(GhFacts, tellTheQuotaThatWasAskedFor)
{
    gitHubOptions().quota = {312, 5000, std::chrono::seconds(600)};
    serve("involved");
    const auto body = boost::json::parse(facts(row("a", "northmere", "quay", 482), "").output);
    EXPECT_EQ(at(body, "/data/rateLimit/remaining"), 312);
    EXPECT_EQ(at(body, "/data/rateLimit/resetAt"), "2026-03-01T12:10:00Z");
    const auto limits = boost::json::parse(gh({"api", "rate_limit"}).output);
    EXPECT_EQ(at(limits, "/resources/graphql/remaining"), 312);
    EXPECT_EQ(at(limits, "/resources/graphql/used"), 4688);
}

TEST_F(GhFacts, cannotBeAskedForDuringASecondaryLimit)
{
    serve("involved");
    setFault("secondary-limit@facts");
    EXPECT_THAT(
        facts(row("a", "northmere", "quay", 482), "  headRefOid\n").errors,
        HasSubstr("gh: You have exceeded a secondary rate limit."));
}

}  // namespace

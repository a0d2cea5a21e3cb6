#include "GhTest.h"

namespace {

using namespace TestSupport;

constexpr const char* everything =
    "is:pr is:open archived:false repo:harbourlight/ferry-api repo:harbourlight/ferry-web "
    "repo:harbourlight/tide-tables repo:robin-k/dotfiles repo:robin-k/pocket-atlas "
    "sort:updated-desc";

class GhSearch : public GhTest {
protected:
    /// What a search found: the numbers in order.
    std::vector<std::int64_t> numbers(const std::string& q) const
    {
        const Result result = search(q);
        EXPECT_EQ(result.status, 0) << result.errors;
        std::vector<std::int64_t> list;
        const auto answer = boost::json::parse(result.output);
        for (const auto& node : at(answer, "/data/search/nodes").as_array()) {
            list.push_back(node.at("number").as_int64());
        }
        return list;
    }

    /// The hit of this number among everything.
    boost::json::value hit(std::int64_t number) const
    {
        const auto answer = boost::json::parse(search(everything).output);
        for (const auto& node : at(answer, "/data/search/nodes").as_array()) {
            if (node.at("number") == number) {
                return node;
            }
        }
        ADD_FAILURE() << "no pull request " << number;
        return {};
    }
};

TEST_F(GhSearch, openOnesOfAllRepositoriesComeLastUpdatedFirst)
{
    serve("everyday");

    EXPECT_THAT(
        numbers(everything),
        ElementsAre(
            407,
            418,
            228,
            415,
            412,
            77,
            231,
            235,
            226,
            225,
            224,
            234,
            233,
            80,
            79,
            81,
            409,
            14,
            219,
            396,
            401,
            398,
            74,
            12));
}

TEST_F(GhSearch, aHitHasTheFieldsOfTheDocument)
{
    serve("everyday");

    const auto node = hit(14);

    EXPECT_EQ(at(node, "/title"), "Shell prompt: show the branch only inside a work tree");
    EXPECT_EQ(at(node, "/url"), "https://github.com/robin-k/dotfiles/pull/14");
    EXPECT_EQ(at(node, "/createdAt"), "2026-02-24T12:00:00Z");
    EXPECT_EQ(at(node, "/updatedAt"), "2026-02-28T03:00:00Z");
    EXPECT_EQ(at(node, "/state"), "OPEN");
    EXPECT_EQ(at(node, "/isDraft"), false);
    EXPECT_EQ(at(node, "/mergeable"), "MERGEABLE");
    EXPECT_EQ(at(node, "/baseRefName"), "main");
    EXPECT_EQ(at(node, "/headRefName"), "prompt");
    EXPECT_EQ(at(node, "/author/login"), "pia-o");
    EXPECT_EQ(at(node, "/repository/nameWithOwner"), "robin-k/dotfiles");
    EXPECT_EQ(at(node, "/baseRepository/nameWithOwner"), "robin-k/dotfiles");
    EXPECT_EQ(at(node, "/headRepository/nameWithOwner"), "pia-o/dotfiles");
    EXPECT_EQ(at(node, "/reviewRequests/nodes/0/requestedReviewer/login"), "robin-k");
    const auto& check = at(node, "/commits/nodes/0/commit/statusCheckRollup/contexts/nodes/0");
    EXPECT_EQ(at(check, "/__typename"), "CheckRun");
    EXPECT_EQ(at(check, "/name"), "shellcheck");
    EXPECT_EQ(at(check, "/conclusion"), "STALE");
    EXPECT_EQ(at(check, "/startedAt"), "2026-02-28T03:00:00Z");
    EXPECT_EQ(at(check, "/checkSuite/workflowRun/file/path"), ".github/workflows/check.yml");
}

TEST_F(GhSearch, deletedAccountsForksAndBasesAreNull)
{
    serve("everyday");

    EXPECT_TRUE(at(hit(74), "/author").is_null());
    EXPECT_TRUE(at(hit(74), "/headRepository").is_null());
    EXPECT_TRUE(at(hit(74), "/latestReviews/nodes/0/author").is_null());
    EXPECT_TRUE(at(hit(81), "/baseRef").is_null());
    EXPECT_TRUE(at(hit(12), "/commits/nodes/0/commit/statusCheckRollup").is_null());
}

TEST_F(GhSearch, theLastPageHasNoNextOne)
{
    serve("everyday");

    const auto answer = boost::json::parse(search(everything).output);

    EXPECT_EQ(at(answer, "/data/search/issueCount"), 24);
    EXPECT_EQ(at(answer, "/data/search/pageInfo/hasNextPage"), false);
}

TEST_F(GhSearch, nothingFoundIsAnEmptyPageWithoutCursor)
{
    serve("empty");

    const auto answer = boost::json::parse(search("is:pr is:open").output);

    EXPECT_EQ(at(answer, "/data/search/issueCount"), 0);
    EXPECT_TRUE(at(answer, "/data/search/pageInfo/endCursor").is_null());
    EXPECT_TRUE(at(answer, "/data/search/nodes").as_array().empty());
}

TEST_F(GhSearch, theCursorLeadsToTheNextPage)
{
    serve(SampleGitHub::parseScenario(
        R"({"account": {"login": "robin-k"},
            "generated": {"repositories": 4, "pullRequests": 70, "busyRepositories": 2}})"));
    const auto first = boost::json::parse(search("is:pr sort:updated-desc").output);
    ASSERT_EQ(at(first, "/data/search/pageInfo/hasNextPage"), true);
    ASSERT_EQ(at(first, "/data/search/nodes").as_array().size(), 50U);
    EXPECT_EQ(at(first, "/data/search/nodes/49/number"), 1049);

    const auto cursor = std::string(at(first, "/data/search/pageInfo/endCursor").as_string());
    const auto second = boost::json::parse(search("is:pr sort:updated-desc", cursor).output);

    EXPECT_EQ(at(second, "/data/search/issueCount"), 70);
    EXPECT_EQ(at(second, "/data/search/pageInfo/hasNextPage"), false);
    EXPECT_EQ(at(second, "/data/search/nodes").as_array().size(), 20U);
    EXPECT_EQ(at(second, "/data/search/nodes/0/number"), 1050);
    const auto body = boost::json::parse(server().requests().back().request.body);
    EXPECT_EQ(at(body, "/variables/cursor"), cursor.c_str());
    EXPECT_EQ(at(body, "/query"), searchDocument());
}

TEST_F(GhSearch, noMoreThanAThousandResultsCanBeReached)
{
    serve(SampleGitHub::parseScenario(
        R"({"account": {"login": "robin-k"},
            "generated": {"repositories": 2, "pullRequests": 1010, "busyRepositories": 2}})"));

    const auto last = boost::json::parse(search("is:pr", "Y3Vyc29yOjk1MA==").output);

    EXPECT_EQ(at(last, "/data/search/issueCount"), 1010);
    EXPECT_EQ(at(last, "/data/search/nodes").as_array().size(), 50U);
    EXPECT_EQ(at(last, "/data/search/pageInfo/hasNextPage"), false);
}

TEST_F(GhSearch, aForeignCursorIsAnError)
{
    serve("everyday");

    const Result result = search(everything, "elsewhere");

    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, StrEq("gh: `elsewhere` does not appear to be a valid cursor.\n"));
}

TEST_F(GhSearch, anUnknownTermIsAnError)
{
    serve("everyday");

    const Result result = search("is:pr milestone:next");

    EXPECT_EQ(result.status, 1);
    EXPECT_THAT(result.errors, HasSubstr("does not know the search term milestone:next."));
}

}  // namespace

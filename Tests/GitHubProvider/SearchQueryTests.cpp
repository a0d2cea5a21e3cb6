#include "GitHubProvider/SearchQuery.h"

#include <gmock/gmock.h>

namespace {

using namespace GitHub;
using PullRequestKit::ReviewerScope;

constexpr const char* documentArgument =
    "query=query($q:String!, $cursor:String) {\n"
    "  search(query:$q, type:ISSUE, first:50, after:$cursor) {\n"
    "    issueCount\n"
    "    pageInfo { hasNextPage endCursor }\n"
    "    nodes {\n"
    "      ... on PullRequest {\n"
    "        number title url createdAt updatedAt state isDraft mergeable baseRefName headRefName\n"
    "        author { login }\n"
    "        repository { nameWithOwner }\n"
    "        baseRepository { nameWithOwner }\n"
    "        headRepository { nameWithOwner }\n"
    "        baseRef { id }\n"
    "        reviewRequests(first:50) { nodes { requestedReviewer { ... on User { login } ... on "
    "Team { name } } } }\n"
    "        latestReviews(first:50) { nodes { state author { login } } }\n"
    "        commits(last:1) { nodes { commit { statusCheckRollup { contexts(first:100) { nodes {\n"
    "          __typename\n"
    "          ... on CheckRun {\n"
    "            name status conclusion databaseId startedAt completedAt\n"
    "            checkSuite { app { id } workflowRun { databaseId runAttempt file { path } } }\n"
    "          }\n"
    "          ... on StatusContext { context state createdAt }\n"
    "        } } } } } }\n"
    "      }\n"
    "    }\n"
    "  }\n"
    "}";

/// The text of the one search that a scope needs.
std::string onlySearch(ReviewerScope scope, const std::set<std::string>& repositories)
{
    const auto queries = searchQueries(scope, repositories);
    EXPECT_EQ(queries.size(), 1U);
    return queries.at(0).text;
}

TEST(SearchQuery, namesTheSortedRepositoriesAndTheReviewer)
{
    EXPECT_EQ(
        onlySearch(ReviewerScope::myself, {"b/two", "a/one"}),
        "is:pr review-requested:@me is:open archived:false repo:a/one repo:b/two "
        "sort:updated-desc");
}

TEST(SearchQuery, forAnyReviewerBeginsWithPullRequestAndOpen)
{
    EXPECT_EQ(
        onlySearch(ReviewerScope::any, {"a/one"}),
        "is:pr is:open archived:false repo:a/one sort:updated-desc");
}

TEST(SearchQuery, forTheInvolvedUserThereIsOneForEachPartInPullRequests)
{
    const auto queries = searchQueries(ReviewerScope::involved, {"b/two", "a/one"});
    EXPECT_THAT(
        queries,
        testing::ElementsAre(
            SearchQuery{
                "is:pr review-requested:@me is:open archived:false repo:a/one repo:b/two "
                "sort:updated-desc",
                true},
            SearchQuery{
                "is:pr author:@me is:open archived:false repo:a/one repo:b/two sort:updated-desc",
                false},
            SearchQuery{
                "is:pr reviewed-by:@me -author:@me is:open archived:false repo:a/one repo:b/two "
                "sort:updated-desc",
                false}));
}

TEST(SearchQuery, onlyThatForReviewRequestsFindsWhatAsksForTheUser)
{
    EXPECT_TRUE(searchQueries(ReviewerScope::myself, {"a/one"}).at(0).asksForUser);
    EXPECT_FALSE(searchQueries(ReviewerScope::any, {"a/one"}).at(0).asksForUser);
}

TEST(SearchQuery, repositoriesAreSortedByCodePoint)
{
    EXPECT_EQ(
        onlySearch(ReviewerScope::any, {"a/b", "B/a", "a/B", "é/a", "z/a"}),
        "is:pr is:open archived:false repo:B/a repo:a/B repo:a/b repo:z/a repo:é/a "
        "sort:updated-desc");
}

TEST(SearchQuery, theFirstPageTakesSixArguments)
{
    EXPECT_THAT(
        searchArguments("is:pr", std::nullopt),
        testing::ElementsAre("api", "graphql", "-f", documentArgument, "-f", "q=is:pr"));
}

TEST(SearchQuery, anotherPageTakesTheCursorAsWell)
{
    EXPECT_THAT(
        searchArguments("is:pr", "Y3Vyc29yOjUw"),
        testing::ElementsAre(
            "api",
            "graphql",
            "-f",
            documentArgument,
            "-f",
            "q=is:pr",
            "-f",
            "cursor=Y3Vyc29yOjUw"));
}

}  // namespace

#include "GitHubProvider/SearchQuery.h"

#include <gmock/gmock.h>

namespace {

using namespace GitHubProvider;
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

TEST(SearchQuery, namesTheSortedRepositoriesAndTheReviewer)
{
    EXPECT_EQ(
        searchQuery(ReviewerScope::myself, {"b/two", "a/one"}),
        "is:pr review-requested:@me is:open archived:false repo:a/one repo:b/two "
        "sort:updated-desc");
}

TEST(SearchQuery, forAnyReviewerBeginsWithPullRequestAndOpen)
{
    EXPECT_EQ(
        searchQuery(ReviewerScope::any, {"a/one"}),
        "is:pr is:open archived:false repo:a/one sort:updated-desc");
}

TEST(SearchQuery, repositoriesAreSortedByCodePoint)
{
    EXPECT_EQ(
        searchQuery(ReviewerScope::any, {"a/b", "B/a", "a/B", "é/a", "z/a"}),
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

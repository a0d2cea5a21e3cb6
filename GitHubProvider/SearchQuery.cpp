#include "GitHubProvider/SearchQuery.h"

namespace GitHubProvider {
namespace {

constexpr const char* documentArgument = R"(query=query($q:String!, $cursor:String) {
  search(query:$q, type:ISSUE, first:50, after:$cursor) {
    issueCount
    pageInfo { hasNextPage endCursor }
    nodes {
      ... on PullRequest {
        number title url createdAt updatedAt state isDraft mergeable baseRefName headRefName
        author { login }
        repository { nameWithOwner }
        baseRepository { nameWithOwner }
        headRepository { nameWithOwner }
        baseRef { id }
        reviewRequests(first:50) { nodes { requestedReviewer { ... on User { login } ... on Team { name } } } }
        latestReviews(first:50) { nodes { state author { login } } }
        commits(last:1) { nodes { commit { statusCheckRollup { contexts(first:100) { nodes {
          __typename
          ... on CheckRun {
            name status conclusion databaseId startedAt completedAt
            checkSuite { app { id } workflowRun { databaseId runAttempt file { path } } }
          }
          ... on StatusContext { context state createdAt }
        } } } } } }
      }
    }
  }
})";

}  // namespace

std::string searchQuery(
    PullRequestKit::ReviewerScope reviewerScope, const std::set<std::string>& repositories)
{
    const bool isForMyself = reviewerScope == PullRequestKit::ReviewerScope::myself;
    std::string query = isForMyself ? "is:pr review-requested:@me" : "is:pr";
    query.append(" is:open archived:false");
    for (const std::string& repository : repositories) {
        query.append(" repo:").append(repository);
    }
    query.append(" sort:updated-desc");
    return query;
}

std::vector<std::string> searchArguments(
    const std::string& query, const std::optional<std::string>& cursor)
{
    std::vector<std::string> arguments{
        "api", "graphql", "-f", documentArgument, "-f", "q=" + query};
    if (cursor) {
        arguments.insert(arguments.end(), {"-f", "cursor=" + *cursor});
    }
    return arguments;
}

}  // namespace GitHubProvider

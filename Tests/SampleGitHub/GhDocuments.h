#pragma once

/// The documents that Tarnwick has `gh` send.
namespace Documents {

inline constexpr const char* search =
    R"(query($q:String!, $cursor:String) {
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

inline constexpr const char* rules =
    R"(query($ids:[ID!]!) {
  nodes(ids:$ids) {
    ... on Ref {
      id
      refUpdateRule { requiredApprovingReviewCount }
      rules(first:100) { nodes {
        type
        parameters { ... on PullRequestParameters { requiredApprovingReviewCount } }
      } }
    }
  }
})";

inline constexpr const char* repositories =
    R"(.[] | {
  repository: .full_name,
  visibility,
  language,
  default_branch,
  archived
})";

}  // namespace Documents

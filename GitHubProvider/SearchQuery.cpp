#include "GitHubProvider/SearchQuery.h"

#include <algorithm>
#include <span>
#include <string_view>

namespace GitHub {
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

struct Concern {
    std::string_view terms;
    bool asksForUser = false;
};

std::vector<Concern> concerns(PullRequestKit::ReviewerScope reviewerScope)
{
    constexpr Concern reviewRequested{" review-requested:@me", true};
    switch (reviewerScope) {
    case PullRequestKit::ReviewerScope::myself:
        return {reviewRequested};
    case PullRequestKit::ReviewerScope::any:
        return {Concern{}};
    case PullRequestKit::ReviewerScope::involved:
        return {reviewRequested, {" author:@me"}, {" reviewed-by:@me -author:@me"}};
    }
    return {};
}

/// The terms before and after the repositories.
struct Frame {
    std::string before;
    std::string_view after = " sort:updated-desc";
};

Frame frame(const Concern& concern)
{
    Frame frame;
    frame.before.append("is:pr").append(concern.terms).append(" is:open archived:false");
    return frame;
}

/// The text around and between the repositories.
struct Joint {
    std::string_view first;
    std::string_view between;
    std::string_view last;
};

constexpr Joint joint(SearchForm form)
{
    return form == SearchForm::groups ? Joint{" (repo:", " OR repo:", ")"}
                                      : Joint{" repo:", " repo:", ""};
}

std::string assemble(
    const Frame& frame, std::span<const std::string_view> repositories, SearchForm form)
{
    const Joint parts = joint(repositories.size() > 1 ? form : SearchForm::terms);
    std::string query = frame.before;
    for (std::size_t place = 0; place < repositories.size(); ++place) {
        query.append(place == 0 ? parts.first : parts.between).append(repositories[place]);
    }
    return query.append(parts.last).append(frame.after);
}

std::string documentFor(SearchForm form)
{
    std::string document = documentArgument;
    if (form == SearchForm::groups) {
        constexpr std::string_view type = "type:ISSUE";
        document.insert(document.find(type) + type.size(), "_ADVANCED");
    }
    return document;
}

void addQueries(
    std::vector<SearchQuery>& queries,
    const Concern& concern,
    const std::set<std::string>& repositories,
    SearchForm form,
    const SearchBounds& bounds)
{
    const Frame around = frame(concern);
    const Joint parts = joint(form);
    const std::size_t fixed = around.before.size() + parts.last.size() + around.after.size();
    std::vector<std::string_view> names;
    std::size_t size = fixed;
    for (const std::string& repository : repositories) {
        const std::size_t more =
            std::max(parts.first.size(), parts.between.size()) + repository.size();
        const bool isFull = size + more > bounds.bytes || names.size() == bounds.repositories;
        if (isFull && !names.empty()) {
            queries.push_back({assemble(around, names, form), concern.asksForUser});
            names.clear();
            size = fixed;
        }
        names.push_back(repository);
        size += more;
    }
    if (!names.empty()) {
        queries.push_back({assemble(around, names, form), concern.asksForUser});
    }
}

}  // namespace

std::vector<SearchQuery> searchQueries(
    PullRequestKit::ReviewerScope reviewerScope,
    const std::set<std::string>& repositories,
    SearchForm form,
    const SearchBounds& bounds)
{
    std::vector<SearchQuery> queries;
    for (const Concern& concern : concerns(reviewerScope)) {
        addQueries(queries, concern, repositories, form, bounds);
    }
    return queries;
}

std::vector<std::string> searchArguments(
    const std::string& query, const std::optional<std::string>& cursor, SearchForm form)
{
    std::vector<std::string> arguments{
        "api", "graphql", "-f", documentFor(form), "-f", "q=" + query};
    if (cursor) {
        arguments.insert(arguments.end(), {"-f", "cursor=" + *cursor});
    }
    return arguments;
}

}  // namespace GitHub

#pragma once

#include "GitHubProvider/BaseRef.h"
#include "GitHubProvider/CheckContext.h"
#include "GitHubProvider/GraphQL.h"
#include "PullRequestKit/Json/Fields.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// One page of the search's answer, as GitHub spells it. What is no `std::optional` must be there.
namespace GitHubProvider {

/// A user has a `login`, a team a `name`.
struct Actor {
    std::optional<std::string> login;
    std::optional<std::string> name;

    bool operator==(const Actor&) const = default;
};

struct Repository {
    std::string nameWithOwner;

    bool operator==(const Repository&) const = default;
};

struct ReviewRequest {
    std::optional<Actor> requestedReviewer;

    bool operator==(const ReviewRequest&) const = default;
};

struct Review {
    std::string state;
    std::optional<Actor> author;  ///< Absent once the account is deleted.

    bool operator==(const Review&) const = default;
};

struct Rollup {
    NodeList<CheckContext> contexts;

    bool operator==(const Rollup&) const = default;
};

struct Commit {
    std::optional<Rollup> statusCheckRollup;

    bool operator==(const Commit&) const = default;
};

struct CommitNode {
    Commit commit;

    bool operator==(const CommitNode&) const = default;
};

/// One hit. A hit that is no pull request has no field at all.
struct Node {
    std::optional<std::int64_t> number;
    std::optional<std::string> title;
    std::optional<PullRequestKit::Url> url;
    std::optional<PullRequestKit::Date> createdAt;
    std::optional<PullRequestKit::Date> updatedAt;
    std::optional<std::string> state;
    std::optional<bool> isDraft;
    std::optional<std::string> mergeable;
    std::optional<std::string> baseRefName;
    std::optional<std::string> headRefName;
    std::optional<Actor> author;
    std::optional<Repository> repository;
    std::optional<Repository> baseRepository;
    std::optional<Repository> headRepository;
    std::optional<BaseRef> baseRef;
    std::optional<NodeList<ReviewRequest>> reviewRequests;
    std::optional<NodeList<Review>> latestReviews;
    std::optional<NodeList<CommitNode>> commits;

    bool operator==(const Node&) const = default;
};

struct PageInfo {
    bool hasNextPage = false;
    std::optional<std::string> endCursor;

    bool operator==(const PageInfo&) const = default;
};

struct SearchPage {
    std::optional<std::int64_t> issueCount;
    PageInfo pageInfo;
    std::vector<Node> nodes;

    bool operator==(const SearchPage&) const = default;
};

struct SearchPayload {
    SearchPage search;

    bool operator==(const SearchPayload&) const = default;
};

using SearchEnvelope = GraphQLAnswer<SearchPayload>;

}  // namespace GitHubProvider

namespace PullRequestKit::Json {

template<>
struct Fields<GitHubProvider::Actor> {
    static constexpr std::tuple table{
        field("login", &GitHubProvider::Actor::login),
        field("name", &GitHubProvider::Actor::name),
    };
};

template<>
struct Fields<GitHubProvider::Repository> {
    static constexpr std::tuple table{
        field("nameWithOwner", &GitHubProvider::Repository::nameWithOwner),
    };
};

template<>
struct Fields<GitHubProvider::ReviewRequest> {
    static constexpr std::tuple table{
        field("requestedReviewer", &GitHubProvider::ReviewRequest::requestedReviewer),
    };
};

template<>
struct Fields<GitHubProvider::Review> {
    static constexpr std::tuple table{
        field("state", &GitHubProvider::Review::state),
        field("author", &GitHubProvider::Review::author),
    };
};

template<>
struct Fields<GitHubProvider::Rollup> {
    static constexpr std::tuple table{
        field("contexts", &GitHubProvider::Rollup::contexts),
    };
};

template<>
struct Fields<GitHubProvider::Commit> {
    static constexpr std::tuple table{
        field("statusCheckRollup", &GitHubProvider::Commit::statusCheckRollup),
    };
};

template<>
struct Fields<GitHubProvider::CommitNode> {
    static constexpr std::tuple table{
        field("commit", &GitHubProvider::CommitNode::commit),
    };
};

template<>
struct Fields<GitHubProvider::Node> {
    static constexpr std::tuple table{
        field("number", &GitHubProvider::Node::number),
        field("title", &GitHubProvider::Node::title),
        field("url", &GitHubProvider::Node::url),
        field("createdAt", &GitHubProvider::Node::createdAt),
        field("updatedAt", &GitHubProvider::Node::updatedAt),
        field("state", &GitHubProvider::Node::state),
        field("isDraft", &GitHubProvider::Node::isDraft),
        field("mergeable", &GitHubProvider::Node::mergeable),
        field("baseRefName", &GitHubProvider::Node::baseRefName),
        field("headRefName", &GitHubProvider::Node::headRefName),
        field("author", &GitHubProvider::Node::author),
        field("repository", &GitHubProvider::Node::repository),
        field("baseRepository", &GitHubProvider::Node::baseRepository),
        field("headRepository", &GitHubProvider::Node::headRepository),
        field("baseRef", &GitHubProvider::Node::baseRef),
        field("reviewRequests", &GitHubProvider::Node::reviewRequests),
        field("latestReviews", &GitHubProvider::Node::latestReviews),
        field("commits", &GitHubProvider::Node::commits),
    };
};

template<>
struct Fields<GitHubProvider::PageInfo> {
    static constexpr std::tuple table{
        field("hasNextPage", &GitHubProvider::PageInfo::hasNextPage),
        field("endCursor", &GitHubProvider::PageInfo::endCursor),
    };
};

template<>
struct Fields<GitHubProvider::SearchPage> {
    static constexpr std::tuple table{
        field("issueCount", &GitHubProvider::SearchPage::issueCount),
        field("pageInfo", &GitHubProvider::SearchPage::pageInfo),
        field("nodes", &GitHubProvider::SearchPage::nodes),
    };
};

template<>
struct Fields<GitHubProvider::SearchPayload> {
    static constexpr std::tuple table{
        field("search", &GitHubProvider::SearchPayload::search),
    };
};

}  // namespace PullRequestKit::Json

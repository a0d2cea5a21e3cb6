#pragma once

#include "GitHubProvider/BaseRef.h"
#include "GitHubProvider/CheckContext.h"
#include "GitHubProvider/GraphQL.h"
#include "PullRequestKit/Json/Fields.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The search's answer in GitHub's terms. Fields other than `std::optional` are required.
namespace GitHub {

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
    std::optional<Actor> author;  ///< Absent after the account was deleted.

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

/// A hit. One that is not a pull request has no fields.
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

}  // namespace GitHub

namespace PullRequestKit::Json {

template<>
struct Fields<GitHub::Actor> {
    static constexpr std::tuple table{
        field("login", &GitHub::Actor::login),
        field("name", &GitHub::Actor::name),
    };
};

template<>
struct Fields<GitHub::Repository> {
    static constexpr std::tuple table{
        field("nameWithOwner", &GitHub::Repository::nameWithOwner),
    };
};

template<>
struct Fields<GitHub::ReviewRequest> {
    static constexpr std::tuple table{
        field("requestedReviewer", &GitHub::ReviewRequest::requestedReviewer),
    };
};

template<>
struct Fields<GitHub::Review> {
    static constexpr std::tuple table{
        field("state", &GitHub::Review::state),
        field("author", &GitHub::Review::author),
    };
};

template<>
struct Fields<GitHub::Rollup> {
    static constexpr std::tuple table{
        field("contexts", &GitHub::Rollup::contexts),
    };
};

template<>
struct Fields<GitHub::Commit> {
    static constexpr std::tuple table{
        field("statusCheckRollup", &GitHub::Commit::statusCheckRollup),
    };
};

template<>
struct Fields<GitHub::CommitNode> {
    static constexpr std::tuple table{
        field("commit", &GitHub::CommitNode::commit),
    };
};

template<>
struct Fields<GitHub::Node> {
    static constexpr std::tuple table{
        field("number", &GitHub::Node::number),
        field("title", &GitHub::Node::title),
        field("url", &GitHub::Node::url),
        field("createdAt", &GitHub::Node::createdAt),
        field("updatedAt", &GitHub::Node::updatedAt),
        field("state", &GitHub::Node::state),
        field("isDraft", &GitHub::Node::isDraft),
        field("mergeable", &GitHub::Node::mergeable),
        field("baseRefName", &GitHub::Node::baseRefName),
        field("headRefName", &GitHub::Node::headRefName),
        field("author", &GitHub::Node::author),
        field("repository", &GitHub::Node::repository),
        field("baseRepository", &GitHub::Node::baseRepository),
        field("headRepository", &GitHub::Node::headRepository),
        field("baseRef", &GitHub::Node::baseRef),
        field("reviewRequests", &GitHub::Node::reviewRequests),
        field("latestReviews", &GitHub::Node::latestReviews),
        field("commits", &GitHub::Node::commits),
    };
};

template<>
struct Fields<GitHub::PageInfo> {
    static constexpr std::tuple table{
        field("hasNextPage", &GitHub::PageInfo::hasNextPage),
        field("endCursor", &GitHub::PageInfo::endCursor),
    };
};

template<>
struct Fields<GitHub::SearchPage> {
    static constexpr std::tuple table{
        field("issueCount", &GitHub::SearchPage::issueCount),
        field("pageInfo", &GitHub::SearchPage::pageInfo),
        field("nodes", &GitHub::SearchPage::nodes),
    };
};

template<>
struct Fields<GitHub::SearchPayload> {
    static constexpr std::tuple table{
        field("search", &GitHub::SearchPayload::search),
    };
};

}  // namespace PullRequestKit::Json

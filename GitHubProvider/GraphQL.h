#pragma once

#include "PullRequestKit/Json/Fields.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace GitHub {

struct GraphQLFailure {
    std::string message;

    bool operator==(const GraphQLFailure&) const = default;
};

/// A GraphQL answer: data, errors, or both.
template<typename Payload>
struct GraphQLAnswer {
    std::optional<Payload> data;
    std::optional<std::vector<GraphQLFailure>> errors;

    std::span<const GraphQLFailure> failures() const
    {
        return errors ? std::span<const GraphQLFailure>(*errors)
                      : std::span<const GraphQLFailure>();
    }

    bool operator==(const GraphQLAnswer&) const = default;
};

/// A GraphQL list: `{"nodes": […]}`.
template<typename Node>
struct NodeList {
    std::vector<Node> nodes;

    bool operator==(const NodeList&) const = default;
};

/// The messages, one per line. Safe from any thread.
std::string graphQLMessage(std::span<const GraphQLFailure> failures);

}  // namespace GitHub

namespace PullRequestKit::Json {

template<>
struct Fields<GitHub::GraphQLFailure> {
    static constexpr std::tuple table{
        field("message", &GitHub::GraphQLFailure::message),
    };
};

template<typename Payload>
struct Fields<GitHub::GraphQLAnswer<Payload>> {
    static constexpr std::tuple table{
        field("data", &GitHub::GraphQLAnswer<Payload>::data),
        field("errors", &GitHub::GraphQLAnswer<Payload>::errors),
    };
};

template<typename Node>
struct Fields<GitHub::NodeList<Node>> {
    static constexpr std::tuple table{
        field("nodes", &GitHub::NodeList<Node>::nodes),
    };
};

}  // namespace PullRequestKit::Json

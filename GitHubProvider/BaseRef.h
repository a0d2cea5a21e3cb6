#pragma once

#include "GitHubProvider/GraphQL.h"
#include "PullRequestKit/Json/Fields.h"

#include <cstdint>
#include <optional>
#include <string>

namespace GitHub {

struct RequiredReviewsRule {
    std::optional<std::int64_t> requiredApprovingReviewCount;

    bool operator==(const RequiredReviewsRule&) const = default;
};

struct RepositoryRule {
    std::optional<RequiredReviewsRule> parameters;  ///< Only in rules on pull requests.

    bool operator==(const RepositoryRule&) const = default;
};

/// A base branch and its protection. The search requests only the id, the rules request the rest.
struct BaseRef {
    std::optional<std::string> id;
    std::optional<RequiredReviewsRule> refUpdateRule;  ///< Classic branch protection.
    std::optional<NodeList<RepositoryRule>> rules;     ///< From rulesets.

    /// The strictest of all rules; nothing when no approvals are required.
    std::optional<std::int64_t> requiredApprovingReviewCount() const;

    bool operator==(const BaseRef&) const = default;
};

}  // namespace GitHub

namespace PullRequestKit::Json {

template<>
struct Fields<GitHub::RequiredReviewsRule> {
    static constexpr std::tuple table{
        field(
            "requiredApprovingReviewCount",
            &GitHub::RequiredReviewsRule::requiredApprovingReviewCount),
    };
};

template<>
struct Fields<GitHub::RepositoryRule> {
    static constexpr std::tuple table{
        field("parameters", &GitHub::RepositoryRule::parameters),
    };
};

template<>
struct Fields<GitHub::BaseRef> {
    static constexpr std::tuple table{
        field("id", &GitHub::BaseRef::id),
        field("refUpdateRule", &GitHub::BaseRef::refUpdateRule),
        field("rules", &GitHub::BaseRef::rules),
    };
};

}  // namespace PullRequestKit::Json

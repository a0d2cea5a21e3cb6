#pragma once

#include "GitHubProvider/GraphQL.h"
#include "PullRequestKit/Json/Fields.h"

#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace GitHub {

/// Checks an empty search result. GitHub has announced that several `repo:` terms will mean all of
/// the repositories instead of any of them; no pull request is in two repositories, so such a
/// search would find nothing. One answer counts all pull requests ever made in one repository, in
/// another, and in both. If the search for both finds nothing although one of them has pull
/// requests, the terms mean all of them. The counts use no other terms: most repositories without
/// open pull requests have closed ones.
struct RepositoryCounts {
    struct Count {
        std::int64_t issueCount = 0;

        bool operator==(const Count&) const = default;
    };

    Count first;
    Count second;
    Count together;

    /// The terms mean all of the repositories.
    bool proveThatTermsExclude() const
    {
        return together.issueCount == 0 && (first.issueCount > 0 || second.issueCount > 0);
    }

    bool operator==(const RepositoryCounts&) const = default;
};

using RepositoryCountsEnvelope = GraphQLAnswer<RepositoryCounts>;

/// Two repositories to count: `known`, if included, and one that rotates daily. Requires: at least
/// two repositories. Safe from any thread.
std::pair<std::string, std::string> repositoriesToCount(
    const std::set<std::string>& repositories,
    const std::optional<std::string>& known,
    PullRequestKit::Date now);

/// The arguments of `gh` that request the counts. Safe from any thread.
std::vector<std::string> countArguments(const std::string& first, const std::string& second);

}  // namespace GitHub

namespace PullRequestKit::Json {

template<>
struct Fields<GitHub::RepositoryCounts::Count> {
    static constexpr std::tuple table{
        field("issueCount", &GitHub::RepositoryCounts::Count::issueCount),
    };
};

template<>
struct Fields<GitHub::RepositoryCounts> {
    static constexpr std::tuple table{
        field("first", &GitHub::RepositoryCounts::first),
        field("second", &GitHub::RepositoryCounts::second),
        field("together", &GitHub::RepositoryCounts::together),
    };
};

}  // namespace PullRequestKit::Json

#pragma once

#include "GitHubProvider/GraphQL.h"
#include "PullRequestKit/Json/Fields.h"

#include <cstdint>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace GitHub {

/// A search over several repositories that finds nothing proves nothing: GitHub has announced that
/// several `repo:` terms will mean all of them instead of any of them, and no pull request is in
/// two repositories. Three counts in one answer tell the two meanings apart: of all pull requests
/// that were ever made in one repository, in another, and in a search that names both. While the
/// terms mean any of them, the search for both finds at least what each finds alone. So when it
/// finds nothing although one of them has something, the terms mean all of them. When both have
/// nothing, the counts say nothing. The counts leave out every other term, because a repository
/// without open pull requests could not prove anything, and one answer holds all three, because a
/// count that came later could differ for other reasons.
struct RepositoryCounts {
    struct Count {
        std::int64_t issueCount = 0;

        bool operator==(const Count&) const = default;
    };

    Count first;
    Count second;
    Count together;

    /// The terms mean all of them.
    bool proveThatTermsExclude() const
    {
        return together.issueCount == 0 && (first.issueCount > 0 || second.issueCount > 0);
    }

    bool operator==(const RepositoryCounts&) const = default;
};

using RepositoryCountsEnvelope = GraphQLAnswer<RepositoryCounts>;

/// Two of the repositories to ask about: `known`, if it is one of them, and the one that is due on
/// this day, so that all have their turn. Requires: two repositories or more. Safe from any thread.
std::pair<std::string, std::string> repositoriesToCount(
    const std::set<std::string>& repositories,
    const std::optional<std::string>& known,
    PullRequestKit::Date now);

/// The arguments with which `gh` counts. Safe from any thread.
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

#pragma once

#include "PullRequestKit/Json/Fields.h"

#include <optional>
#include <string>

namespace GitHubProvider {

/// A repository as `gh` prints it in the listing.
struct APIRepository {
    std::string repository;  ///< owner/name
    std::optional<std::string> visibility;
    std::optional<std::string> language;
    std::optional<std::string> defaultBranch;
    bool archived = false;

    bool operator==(const APIRepository&) const = default;
};

}  // namespace GitHubProvider

template<>
struct PullRequestKit::Json::Fields<GitHubProvider::APIRepository> {
    static constexpr std::tuple table{
        field("repository", &GitHubProvider::APIRepository::repository),
        field("visibility", &GitHubProvider::APIRepository::visibility),
        field("language", &GitHubProvider::APIRepository::language),
        field("default_branch", &GitHubProvider::APIRepository::defaultBranch),
        field("archived", &GitHubProvider::APIRepository::archived),
    };
};

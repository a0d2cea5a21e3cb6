#pragma once

#include "PullRequestKit/Json/Fields.h"

#include <optional>
#include <string>

namespace GitHub {

/// A repository in the output of `gh`.
struct APIRepository {
    std::string repository;  ///< owner/name
    std::optional<std::string> visibility;
    std::optional<std::string> language;
    std::optional<std::string> defaultBranch;
    bool archived = false;

    bool operator==(const APIRepository&) const = default;
};

}  // namespace GitHub

template<>
struct PullRequestKit::Json::Fields<GitHub::APIRepository> {
    static constexpr std::tuple table{
        field("repository", &GitHub::APIRepository::repository),
        field("visibility", &GitHub::APIRepository::visibility),
        field("language", &GitHub::APIRepository::language),
        field("default_branch", &GitHub::APIRepository::defaultBranch),
        field("archived", &GitHub::APIRepository::archived),
    };
};

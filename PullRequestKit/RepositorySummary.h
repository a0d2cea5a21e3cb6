#pragma once

#include "PullRequestKit/Json/Fields.h"

#include <functional>
#include <optional>
#include <string>

namespace PullRequestKit {

/// A repository available to the user, identified by `fullName`.
struct RepositorySummary {
    std::string fullName;  ///< owner/name
    std::optional<std::string> visibility;
    std::optional<std::string> language;
    std::optional<std::string> defaultBranch;
    bool isArchived = false;

    const std::string& id() const { return fullName; }

    bool operator==(const RepositorySummary&) const = default;
};

template<>
struct Json::Fields<RepositorySummary> {
    static constexpr std::tuple table{
        field("fullName", &RepositorySummary::fullName),
        field("visibility", &RepositorySummary::visibility),
        field("language", &RepositorySummary::language),
        field("defaultBranch", &RepositorySummary::defaultBranch),
        defaultedField("isArchived", &RepositorySummary::isArchived),
    };
};

}  // namespace PullRequestKit

template<>
struct std::hash<PullRequestKit::RepositorySummary> : PullRequestKit::RecordHash {};

#pragma once

#include "PullRequestKit/RepositorySummary.h"

#include <string>
#include <string_view>
#include <vector>

namespace Tarnwick {

/// The repositories of one owner. Its identity is `owner`.
struct RepositoryGroup {
    std::string owner;
    std::vector<PullRequestKit::RepositorySummary> repositories;

    const std::string& id() const { return owner; }

    bool operator==(const RepositoryGroup&) const = default;
};

/// The part before the first "/", or the whole name when it has none.
std::string_view ownerOf(std::string_view fullName);

/// The part after the first "/", or the whole name when there is none.
std::string_view nameOf(std::string_view fullName);

/// Groups by owner, the groups in the order of their owners and each group's repositories in that
/// of their full names, both as a file browser orders names. Names that compare equal keep their
/// order. Safe from any thread.
std::vector<RepositoryGroup> repositoryGroups(
    const std::vector<PullRequestKit::RepositorySummary>& repositories);

}  // namespace Tarnwick

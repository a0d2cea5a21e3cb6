#pragma once

#include "PullRequestKit/RepositorySummary.h"

#include <string>
#include <string_view>
#include <vector>

namespace Tarnwick {

/// The repositories of one owner, identified by `owner`.
struct RepositoryGroup {
    std::string owner;
    std::vector<PullRequestKit::RepositorySummary> repositories;

    const std::string& id() const { return owner; }

    bool operator==(const RepositoryGroup&) const = default;
};

/// The part before the first "/", or the whole name without one.
std::string_view ownerOf(std::string_view fullName);

/// The part after the first "/", or the whole name without one.
std::string_view nameOf(std::string_view fullName);

/// Groups the repositories by owner. Groups are sorted by owner and repositories by full name, both
/// as in `sortByLocalizedName`. Safe from any thread.
std::vector<RepositoryGroup> repositoryGroups(
    const std::vector<PullRequestKit::RepositorySummary>& repositories);

}  // namespace Tarnwick

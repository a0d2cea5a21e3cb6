#pragma once

#include "PullRequestKit/ReviewerScope.h"

#include <optional>
#include <set>
#include <string>
#include <vector>

namespace GitHubProvider {

/// The search terms for the open pull requests of these repositories, last updated first.
/// Safe from any thread.
std::string searchQuery(
    PullRequestKit::ReviewerScope reviewerScope, const std::set<std::string>& repositories);

/// The arguments with which `gh` loads the first page of the query's hits, or the page at `cursor`.
/// Safe from any thread.
std::vector<std::string> searchArguments(
    const std::string& query, const std::optional<std::string>& cursor);

}  // namespace GitHubProvider

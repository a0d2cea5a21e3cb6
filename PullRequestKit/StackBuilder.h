#pragma once

#include "PullRequestKit/PullRequestRow.h"

#include <vector>

namespace PullRequestKit::StackBuilder {

/// The rows in display order. A pull request whose base is the head of exactly one other is listed
/// below it, one level deeper. Siblings follow `PullRequestOrdering`. Duplicates are resolved as by
/// `uniquePullRequests`. A pull request with an ambiguous base, and each member of a cycle, is a
/// root with a warning. Safe from any thread.
std::vector<PullRequestRow> rows(std::vector<PullRequest> pullRequests);

}  // namespace PullRequestKit::StackBuilder

#pragma once

#include "PullRequestKit/PullRequestRow.h"

#include <vector>

namespace PullRequestKit::StackBuilder {

/// The rows in display order. A pull request whose base is the head branch of exactly one other is
/// listed right under it, one level deeper; siblings follow `PullRequestOrdering`. Of one identity
/// given twice the version updated last is shown, else the first. A base that several others bring
/// in, and each member of a circle of bases, is a root with a warning; every other pull request has
/// none. Every identity comes out exactly once. Safe from any thread.
std::vector<PullRequestRow> rows(std::vector<PullRequest> pullRequests);

}  // namespace PullRequestKit::StackBuilder

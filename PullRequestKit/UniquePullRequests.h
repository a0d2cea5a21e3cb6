#pragma once

#include "PullRequestKit/PullRequest.h"

#include <vector>

namespace PullRequestKit {

/// One entry per identity, at the place of its first occurrence: the version updated last, and of
/// versions updated at the same time the first one given. Safe from any thread.
std::vector<PullRequest> uniquePullRequests(std::vector<PullRequest> pullRequests);

}  // namespace PullRequestKit

#pragma once

#include "PullRequestKit/PullRequest.h"

#include <vector>

namespace PullRequestKit {

/// Removes duplicate identities. The version updated last is kept, else the first, at the position
/// of the first. Safe from any thread.
std::vector<PullRequest> uniquePullRequests(std::vector<PullRequest> pullRequests);

}  // namespace PullRequestKit

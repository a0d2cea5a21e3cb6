#pragma once

#include "PullRequestKit/PullRequest.h"

#include <cstddef>
#include <vector>

namespace Benchmarks {

/// As many pull requests as a busy organisation has: of every 50 in a repository, a third stand in
/// stacks of two to four, some come from forks, some are merged or closed; checks and reviews are
/// in all states, and a page's worth shares each second of update. The same ones at each call.
std::vector<PullRequestKit::PullRequest> makePullRequests(std::size_t count);

}  // namespace Benchmarks

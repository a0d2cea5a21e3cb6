#pragma once

#include "PullRequestKit/PullRequest.h"

#include <cstddef>
#include <vector>

namespace Benchmarks {

/// Pull requests of a busy organization, 50 per repository: a third in stacks of two to four, some
/// from forks, some merged or closed, with checks and reviews in all states, and a page's worth per
/// second of update. Deterministic.
std::vector<PullRequestKit::PullRequest> makePullRequests(std::size_t count);

}  // namespace Benchmarks

#pragma once

#include "PullRequestKit/PullRequest.h"

#include <cstddef>
#include <vector>

namespace PullRequestKit::PullRequestOrdering {

/// Whether `left` precedes `right` among siblings. The criteria in turn: open, merged, closed;
/// finished before outstanding checks; review state; latest update; storage key as plain text
/// (number 10 before 9). A strict total order over distinct identities. Safe from any thread.
bool areInIncreasingOrder(const PullRequest& left, const PullRequest& right);

/// Their positions in that order; faster than sorting the records. Stable. Safe from any thread.
std::vector<std::size_t> order(const std::vector<PullRequest>& pullRequests);

}  // namespace PullRequestKit::PullRequestOrdering

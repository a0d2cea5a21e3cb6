#pragma once

#include "PullRequestKit/PullRequest.h"

#include <cstddef>
#include <vector>

namespace PullRequestKit::PullRequestOrdering {

/// Whether `left` goes before `right` among siblings: open before merged before closed, then
/// finished checks before outstanding ones, then by review state, then the later update first, then
/// by storage key as plain text (so number 10 before number 9). A strict total order over pull
/// requests with distinct identities. Safe from any thread.
bool areInIncreasingOrder(const PullRequest& left, const PullRequest& right);

/// The positions of these pull requests in that order, quicker than by sorting the records. Of
/// equal ones the first given goes first. Safe from any thread.
std::vector<std::size_t> order(const std::vector<PullRequest>& pullRequests);

}  // namespace PullRequestKit::PullRequestOrdering

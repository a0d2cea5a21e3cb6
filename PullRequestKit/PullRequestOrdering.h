#pragma once

#include "PullRequestKit/PullRequest.h"

namespace PullRequestKit::PullRequestOrdering {

/// Whether `left` goes before `right` among siblings: open before merged before closed, then
/// finished checks before outstanding ones, then by review state, then the later update first, then
/// by storage key as plain text (so number 10 before number 9). A strict total order over pull
/// requests with distinct identities. Safe from any thread.
bool areInIncreasingOrder(const PullRequest& left, const PullRequest& right);

}  // namespace PullRequestKit::PullRequestOrdering

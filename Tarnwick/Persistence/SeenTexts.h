#pragma once

#include "PullRequestKit/SeenPullRequest.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace Tarnwick {

/// What was seen of a pull request as the texts of a list, in this order: when it was updated, its
/// state, "draft" or "ready", its mergeability, what its reviews come to, their count, the count of
/// its checks and of those that failed, such as "2/4/1", and the head commit if it was known.
/// Stored: do not change. Safe from any thread.
std::vector<std::string> seenTexts(const PullRequestKit::SeenPullRequest& seen);

/// Nothing for any other texts.
std::optional<PullRequestKit::SeenPullRequest> seenFromTexts(std::span<const std::string> texts);

}  // namespace Tarnwick

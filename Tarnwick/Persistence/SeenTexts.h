#pragma once

#include "PullRequestKit/SeenPullRequest.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace Tarnwick {

/// Encodes as a list of texts: time of the update, state, "draft" or "ready", mergeability, review
/// state, review count, checks with failures such as "2/4/1", and the head commit if known. Stored:
/// do not change. Safe from any thread.
std::vector<std::string> seenTexts(const PullRequestKit::SeenPullRequest& seen);

/// Nothing for invalid texts.
std::optional<PullRequestKit::SeenPullRequest> seenFromTexts(std::span<const std::string> texts);

}  // namespace Tarnwick

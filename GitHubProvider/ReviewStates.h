#pragma once

#include "PullRequestKit/PullRequestDetails.h"

#include <optional>
#include <string_view>

namespace GitHub {

inline constexpr std::string_view approvedText = "APPROVED";
inline constexpr std::string_view changesRequestedText = "CHANGES_REQUESTED";
inline constexpr std::string_view commentedText = "COMMENTED";

/// The verdict for one of GitHub's review states. Safe from any thread.
std::optional<PullRequestKit::ReviewVerdict> reviewVerdict(std::string_view state);

}  // namespace GitHub

#pragma once

#include "PullRequestKit/PullRequestDetails.h"

#include <optional>
#include <string_view>

namespace GitHub {

/// GitHub's texts for the results of reviews.
inline constexpr std::string_view approvedText = "APPROVED";
inline constexpr std::string_view changesRequestedText = "CHANGES_REQUESTED";
inline constexpr std::string_view commentedText = "COMMENTED";

/// What one of these texts, "DISMISSED" and "PENDING" included, stands for. Safe from any thread.
std::optional<PullRequestKit::ReviewVerdict> reviewVerdict(std::string_view state);

}  // namespace GitHub

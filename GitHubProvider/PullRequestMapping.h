#pragma once

#include "GitHubProvider/SearchRecords.h"
#include "PullRequestKit/PullRequest.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace GitHubProvider {

/// The text in `PullRequestID::provider` of every pull request from GitHub. Stored: do not rename.
inline constexpr std::string_view providerID = "github";

/// The pull request of a hit on this host, with the number of approvals that its base branch
/// requires. Nothing when the hit is no pull request or lacks what one cannot do without.
/// Safe from any thread.
std::optional<PullRequestKit::PullRequest> makePullRequest(
    Node node, const std::string& host, std::optional<std::int64_t> requiredReviews);

}  // namespace GitHubProvider

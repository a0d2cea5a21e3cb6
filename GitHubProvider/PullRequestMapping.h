#pragma once

#include "GitHubProvider/SearchRecords.h"
#include "PullRequestKit/PullRequest.h"
#include "PullRequestKit/PullRequestDetails.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace GitHub {

/// `PullRequestID::provider` of all pull requests from GitHub. Stored: do not rename.
inline constexpr std::string_view providerID = "github";

struct MappedPullRequest {
    PullRequestKit::PullRequest pullRequest;
    PullRequestKit::PullRequestDetails details;
};

/// Like `makePullRequest`, with details that share texts through `texts`. Safe from any thread.
std::optional<MappedPullRequest> mapPullRequest(
    Node node,
    const std::string& host,
    std::optional<std::int64_t> requiredReviews,
    PullRequestKit::SharedTexts& texts);

/// The pull request of a hit on this host, with the required approvals of its base branch. Nothing
/// when the hit is not a pull request or lacks required fields. Safe from any thread.
std::optional<PullRequestKit::PullRequest> makePullRequest(
    Node node, const std::string& host, std::optional<std::int64_t> requiredReviews);

}  // namespace GitHub

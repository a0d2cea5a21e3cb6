#pragma once

#include "GitHubProvider/SearchRecords.h"
#include "PullRequestKit/PullRequest.h"
#include "PullRequestKit/PullRequestDetails.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace GitHub {

/// The text in `PullRequestID::provider` of every pull request from GitHub. Stored: do not rename.
inline constexpr std::string_view providerID = "github";

struct MappedPullRequest {
    PullRequestKit::PullRequest pullRequest;
    PullRequestKit::PullRequestDetails details;
};

/// The pull request of a hit as `makePullRequest` makes it, with the names behind its counts; the
/// checks' names are shared through `texts`, because many pull requests have the same.
/// Safe from any thread.
std::optional<MappedPullRequest> mapPullRequest(
    Node node,
    const std::string& host,
    std::optional<std::int64_t> requiredReviews,
    PullRequestKit::SharedTexts& texts);

/// The pull request of a hit on this host, with the number of approvals that its base branch
/// requires. Nothing when the hit is no pull request or lacks what one cannot do without.
/// Safe from any thread.
std::optional<PullRequestKit::PullRequest> makePullRequest(
    Node node, const std::string& host, std::optional<std::int64_t> requiredReviews);

}  // namespace GitHub

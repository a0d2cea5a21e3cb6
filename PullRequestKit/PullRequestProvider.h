#pragma once

#include "PullRequestKit/AuthenticationStatus.h"
#include "PullRequestKit/Errors.h"
#include "PullRequestKit/PullRequest.h"
#include "PullRequestKit/RepositorySummary.h"
#include "PullRequestKit/ReviewerScope.h"

#include <set>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace PullRequestKit {

/// A code-hosting service as the program sees it. All three requests block; call them on a worker
/// thread. They may be called from several threads at once. A request whose token is stopped ends
/// soon, with `CancellationError`.
class PullRequestProvider {
public:
    PullRequestProvider() = default;
    PullRequestProvider(const PullRequestProvider&) = delete;
    PullRequestProvider& operator=(const PullRequestProvider&) = delete;
    virtual ~PullRequestProvider() = default;

    /// The text that the provider writes into `PullRequestID::provider`.
    virtual std::string_view id() const = 0;

    virtual std::string_view displayName() const = 0;

    /// Never throws: every problem, cancellation included, is a status with a text for the user.
    virtual AuthenticationStatus authenticationStatus(std::stop_token stopToken) const = 0;

    /// The repositories that the user can choose from. Throws `ProviderError`, `DecodingError`,
    /// `CancellationError`.
    virtual std::vector<RepositorySummary> repositories(std::stop_token stopToken) const = 0;

    /// The pull requests of these repositories, in any order. Throws `ProviderError`,
    /// `DecodingError`, `CancellationError`.
    virtual std::vector<PullRequest> pullRequests(
        ReviewerScope reviewerScope,
        const std::set<std::string>& repositories,
        std::stop_token stopToken) const = 0;
};

}  // namespace PullRequestKit

#pragma once

#include "PullRequestKit/AuthenticationStatus.h"
#include "PullRequestKit/Errors.h"
#include "PullRequestKit/PullRequest.h"
#include "PullRequestKit/PullRequestDetails.h"
#include "PullRequestKit/PullRequestFacts.h"
#include "PullRequestKit/RepositorySummary.h"
#include "PullRequestKit/ReviewerScope.h"

#include <cstdint>
#include <optional>
#include <set>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace PullRequestKit {

struct PullRequestList {
    std::vector<PullRequest> pullRequests;

    /// The total number, when the service has more than it returns.
    std::optional<std::int64_t> found;

    /// One entry per pull request in the same order; empty when the service provides none.
    std::vector<PullRequestDetails> details;
};

/// A code-hosting service. Requests block; call them on a worker thread. Several threads may call
/// at once. A stopped token soon ends a request with `CancellationError`. The lists also throw
/// `ProviderError` and `DecodingError`.
class PullRequestProvider {
public:
    PullRequestProvider() = default;
    PullRequestProvider(const PullRequestProvider&) = delete;
    PullRequestProvider& operator=(const PullRequestProvider&) = delete;
    virtual ~PullRequestProvider() = default;

    /// The value of `PullRequestID::provider`.
    virtual std::string_view id() const = 0;

    virtual std::string_view displayName() const = 0;

    /// Never throws: every problem, cancellation included, is a status with a message for the user.
    virtual AuthenticationStatus authenticationStatus(std::stop_token stopToken) const = 0;

    /// The repositories available to the user.
    virtual std::vector<RepositorySummary> repositories(std::stop_token stopToken) const = 0;

    /// The pull requests of these repositories, in any order.
    virtual std::vector<PullRequest> pullRequests(
        ReviewerScope reviewerScope,
        const std::set<std::string>& repositories,
        std::stop_token stopToken) const = 0;

    /// Like `pullRequests`, with the total number and the details. The default adds neither.
    virtual PullRequestList listPullRequests(
        ReviewerScope reviewerScope,
        const std::set<std::string>& repositories,
        std::stop_token stopToken) const
    {
        return {pullRequests(reviewerScope, repositories, std::move(stopToken)), std::nullopt, {}};
    }

    /// The facts of these pull requests; unavailable ones are left out, and those of a renamed
    /// repository are under its new name. Throws only `CancellationError`. The default returns
    /// none.
    virtual FactsAnswer facts(
        std::span<const PullRequest> /*pullRequests*/, std::stop_token /*stopToken*/) const
    {
        return {};
    }
};

}  // namespace PullRequestKit

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

/// What a request for pull requests brings.
struct PullRequestList {
    std::vector<PullRequest> pullRequests;

    /// How many there are in all, when that is known to be more than the service hands out.
    std::optional<std::int64_t> found;

    /// One for each of the pull requests, in their order; empty where the service tells no names.
    std::vector<PullRequestDetails> details;
};

/// A code-hosting service as the program sees it. All requests block; call them on a worker
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

    /// The same, with how many there are and the names behind their counts. A provider that cannot
    /// tell leaves this as it is.
    virtual PullRequestList listPullRequests(
        ReviewerScope reviewerScope,
        const std::set<std::string>& repositories,
        std::stop_token stopToken) const
    {
        return {pullRequests(reviewerScope, repositories, std::move(stopToken)), std::nullopt, {}};
    }

    /// The facts of these pull requests. What cannot be told is left out: it throws nothing but
    /// `CancellationError`. Those of a repository that was renamed since the list was asked for are
    /// under its new name. A provider that knows none leaves this as it is.
    virtual FactsAnswer facts(
        std::span<const PullRequest> /*pullRequests*/, std::stop_token /*stopToken*/) const
    {
        return {};
    }
};

}  // namespace PullRequestKit

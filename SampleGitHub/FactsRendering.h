#pragma once

#include "PullRequestKit/Date.h"
#include "SampleGitHub/Scenario.h"

#include <boost/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace SampleGitHub {

/// These fields of a pull request in GitHub's form, as seen by the account. Safe from any thread.
boost::json::object renderFacts(
    const PullRequest& pullRequest,
    const Scenario& scenario,
    const std::vector<std::string>& fields,
    PullRequestKit::Date now);

/// The hash of the head commit, from the scenario or made up.
std::string headCommit(const PullRequest& pullRequest);

/// "APPROVED", "CHANGES_REQUESTED", "REVIEW_REQUIRED", or nothing when no review is required; from
/// the scenario, or derived from rules and reviews.
std::optional<std::string> reviewDecision(const PullRequest& pullRequest, const Scenario& scenario);

}  // namespace SampleGitHub

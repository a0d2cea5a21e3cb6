#pragma once

#include "PullRequestKit/Date.h"
#include "SampleGitHub/Scenario.h"

#include <boost/json.hpp>
#include <optional>
#include <string>
#include <vector>

namespace SampleGitHub {

/// What GitHub tells of a pull request apart from the search: these fields of it, as the user sees
/// them. Safe from any thread.
boost::json::object renderFacts(
    const PullRequest& pullRequest,
    const Scenario& scenario,
    const std::vector<std::string>& fields,
    PullRequestKit::Date now);

/// The hash of the head's commit: the scenario's, or one that is made up.
std::string headCommit(const PullRequest& pullRequest);

/// "APPROVED", "CHANGES_REQUESTED", "REVIEW_REQUIRED", or nothing where the base branch requires no
/// review: the scenario's, or what its rules and the reviews make.
std::optional<std::string> reviewDecision(const PullRequest& pullRequest, const Scenario& scenario);

}  // namespace SampleGitHub

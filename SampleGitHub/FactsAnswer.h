#pragma once

#include "PullRequestKit/Date.h"
#include "SampleGitHub/GitHub.h"
#include "SampleGitHub/GraphQl.h"
#include "SampleGitHub/Scenario.h"

#include <string>

namespace SampleGitHub {

/// GitHub's answer to a facts document: data, errors, or both. Safe from any thread.
std::string answerFacts(
    const GraphQlRequest& request,
    const Scenario& scenario,
    const GitHubOptions& options,
    PullRequestKit::Date now);

}  // namespace SampleGitHub

#pragma once

#include "PullRequestKit/Date.h"
#include "SampleGitHub/Scenario.h"

#include <cstdint>
#include <string>

/// GitHub's JSON for records. Safe from any thread.
namespace SampleGitHub {

/// A branch's id in the style of GitHub's opaque ids.
std::string refId(const std::string& repository, const std::string& branch);

/// A search hit with the fields of Tarnwick's search document.
std::string renderSearchNode(const PullRequest& pullRequest, PullRequestKit::Date now);

/// A branch and its rules with the fields of the rules document.
std::string renderRefNode(const std::string& id, const BranchRules& rules);

/// A repository in the REST API. `id` is GitHub's number of the repository.
std::string renderRepository(
    const Repository& repository, std::int64_t id, PullRequestKit::Date now);

}  // namespace SampleGitHub

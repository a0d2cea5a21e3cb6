#pragma once

#include "PullRequestKit/Date.h"
#include "SampleGitHub/Scenario.h"

#include <cstdint>
#include <string>

/// The JSON texts in which GitHub tells of a record. Safe from any thread.
namespace SampleGitHub {

/// GitHub's id of a branch, as far as anyone can tell one from an opaque text.
std::string refId(const std::string& repository, const std::string& branch);

/// A search hit with the fields that Tarnwick's search document asks for.
std::string renderSearchNode(const PullRequest& pullRequest, PullRequestKit::Date now);

/// A branch with its rules, as the rules document asks for them.
std::string renderRefNode(const std::string& id, const BranchRules& rules);

/// A repository as the REST interface tells of it. `id` is GitHub's number of the repository.
std::string renderRepository(
    const Repository& repository, std::int64_t id, PullRequestKit::Date now);

}  // namespace SampleGitHub

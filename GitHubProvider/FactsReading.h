#pragma once

#include "GitHubProvider/FactsDocument.h"
#include "PullRequestKit/PullRequestFacts.h"

#include <optional>
#include <span>
#include <string_view>

namespace GitHub {

/// What one answer on facts holds.
struct FactsPage {
    bool hasData = false;  ///< Without data the request has failed.
    PullRequestKit::FactsByID facts;
    std::optional<PullRequestKit::Quota> quota;
    UnknownFields unknownFields;  ///< Those of which the answer says so.
    bool isLimited = false;       ///< GitHub refused the request for a limit of any kind.
    bool isSecondaryLimit = false;
};

/// Reads an answer on these pull requests. Never throws for what stands in it: what is no JSON has
/// no data, a pull request that is null or lacks what its facts rest on has none, and any other
/// value of a wrong kind counts as absent. Facts belong to the repository that the answer names,
/// which is another one once a repository was renamed. Safe from any thread.
FactsPage readFacts(
    std::string_view answer,
    std::span<const PullRequestKit::PullRequest* const> pullRequests,
    PullRequestKit::Date askedAt);

}  // namespace GitHub

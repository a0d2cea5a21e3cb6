#pragma once

#include "GitHubProvider/FactsDocument.h"
#include "PullRequestKit/PullRequestFacts.h"

#include <optional>
#include <span>
#include <string_view>

namespace GitHub {

struct FactsPage {
    bool hasData = false;  ///< False when the request failed.
    PullRequestKit::FactsByID facts;
    std::optional<PullRequestKit::Quota> quota;
    UnknownFields unknownFields;  ///< As reported by this answer.
    bool isLimited = false;       ///< Refused because of any rate limit.
    bool isSecondaryLimit = false;
};

/// Parses an answer on these pull requests. Never throws: text that is not JSON has no data, a null
/// or incomplete pull request has no facts, and other invalid values count as absent. Facts belong
/// to the repository named in the answer, which differs after a rename. Safe from any thread.
FactsPage readFacts(
    std::string_view answer,
    std::span<const PullRequestKit::PullRequest* const> pullRequests,
    PullRequestKit::Date askedAt);

}  // namespace GitHub

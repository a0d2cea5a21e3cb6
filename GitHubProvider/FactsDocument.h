#pragma once

#include "PullRequestKit/PullRequest.h"

#include <array>
#include <bitset>
#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace GitHub {

/// A field of the facts document. All belong to a pull request, except for the last.
struct FactsField {
    std::string_view name;
    std::string_view selection;  ///< With the braces; empty for a scalar.
};

inline constexpr std::array<FactsField, 10> factsFields{{
    {"headRefOid", {}},
    {"reviewDecision", {}},
    {"isInMergeQueue", {}},
    {"mergeQueueEntry", "{ position }"},
    {"autoMergeRequest", "{ enabledAt }"},
    {"viewerLatestReview", "{ state submittedAt commit { oid } }"},
    {"reviewThreads", "(first:100) { totalCount nodes { isResolved } }"},
    {"stackEntry", "{ position }"},
    {"stack", "{ number size }"},
    {"rateLimit", "{ cost limit remaining resetAt }"},
}};

/// Indexes into `factsFields` of fields that the host does not know.
using UnknownFields = std::bitset<factsFields.size()>;

/// False when the host lacks one of the fields that facts require. Safe from any thread.
bool haveFacts(const UnknownFields& unknown);

/// False for a longer name or a larger number than GitHub allows; it would fail the whole document.
/// Safe from any thread.
bool canBeAsked(const PullRequestKit::PullRequestID& id);

/// The alias of the pull request at this index of the request.
std::string factsAlias(std::size_t place);

/// The arguments of `gh` that request these facts, without the unknown fields. Requires:
/// `canBeAsked` for each. Safe from any thread.
std::vector<std::string> factsArguments(
    std::span<const PullRequestKit::PullRequest* const> pullRequests, const UnknownFields& unknown);

}  // namespace GitHub

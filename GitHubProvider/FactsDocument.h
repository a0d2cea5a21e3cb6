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

/// A field that the facts document asks for: of a pull request, and last the one of the service.
struct FactsField {
    std::string_view name;
    std::string_view selection;  ///< What is asked for of it, with the braces; empty for a value.
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

/// The places in `factsFields` of those that a host does not know.
using UnknownFields = std::bitset<factsFields.size()>;

/// Facts never rest on what was not told: where a host does not know one of the fields that every
/// pull request has to have, there are none to ask for. Safe from any thread.
bool haveFacts(const UnknownFields& unknown);

/// Whether the pull request can stand in a document: a longer name or a larger number than GitHub
/// knows would cost the others of the document their facts. Safe from any thread.
bool canBeAsked(const PullRequestKit::PullRequestID& id);

/// What the answer calls the pull request at this place of the request.
std::string factsAlias(std::size_t place);

/// The arguments with which `gh` asks for the facts of these pull requests, without the unknown
/// fields. Names go into the document as GraphQL strings. Requires: each can be asked.
/// Safe from any thread.
std::vector<std::string> factsArguments(
    std::span<const PullRequestKit::PullRequest* const> pullRequests, const UnknownFields& unknown);

}  // namespace GitHub

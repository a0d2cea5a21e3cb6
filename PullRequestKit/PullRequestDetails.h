#pragma once

#include "PullRequestKit/EnumNames.h"
#include "PullRequestKit/Json/Fields.h"
#include "PullRequestKit/PullRequest.h"
#include "PullRequestKit/SharedText.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <span>
#include <string>
#include <unordered_map>
#include <vector>

namespace PullRequestKit {

enum class ReviewVerdict {
    approved,
    changesRequested,
    commented,
    dismissed,
    pending,  ///< A draft of the user's own review, visible to nobody else.
};

struct LatestReview {
    std::string author;  ///< Login.
    ReviewVerdict verdict = ReviewVerdict::pending;

    bool operator==(const LatestReview&) const = default;
};

/// The names behind the counts of a pull request, in the service's order. The names are untrusted
/// text. A pull request may have no details.
struct PullRequestDetails {
    std::vector<std::string> requestedUsers;  ///< Logins without duplicates.
    std::vector<std::string> requestedTeams;  ///< Names without duplicates.
    std::vector<LatestReview> reviews;        ///< The latest review of each reviewer.
    std::vector<SharedText> passedChecks;
    std::vector<SharedText> failedChecks;
    std::vector<SharedText> runningChecks;  ///< Running or queued.

    /// Set when the service returned its maximum number of entries. There may be more, which
    /// neither the names nor the counts include.
    std::optional<std::int64_t> requestLimit;
    std::optional<std::int64_t> reviewLimit;
    std::optional<std::int64_t> checkLimit;

    /// The user or one of the user's teams is a requested reviewer. False means unknown.
    bool asksForUser = false;

    bool isCutOff() const { return requestLimit || reviewLimit || checkLimit; }

    bool operator==(const PullRequestDetails&) const = default;
};

using DetailsByID = std::unordered_map<PullRequestID, PullRequestDetails>;
using SharedDetails = std::shared_ptr<const DetailsByID>;

/// Maps details to their pull requests. For a duplicate identity, the version that
/// `uniquePullRequests` keeps wins, and `asksForUser` is set if any version has it. Requires: one
/// entry per pull request in the same order, or none. Safe from any thread.
DetailsByID detailsByID(
    std::span<const PullRequest> pullRequests, std::vector<PullRequestDetails> details);

// Stored: do not rename.
template<>
struct EnumNames<ReviewVerdict> {
    static constexpr auto names = enumNames<ReviewVerdict>({
        {ReviewVerdict::approved, "approved"},
        {ReviewVerdict::changesRequested, "changesRequested"},
        {ReviewVerdict::commented, "commented"},
        {ReviewVerdict::dismissed, "dismissed"},
        {ReviewVerdict::pending, "pending"},
    });
};

// Stored: do not rename.
template<>
struct Json::Fields<LatestReview> {
    static constexpr std::tuple table{
        field("author", &LatestReview::author),
        field("verdict", &LatestReview::verdict),
    };
};

}  // namespace PullRequestKit

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

/// The result of one review.
enum class ReviewVerdict {
    approved,
    changesRequested,
    commented,
    dismissed,
    pending,  ///< Begun by the user and not submitted yet; nobody else sees it.
};

struct LatestReview {
    std::string author;  ///< Login.
    ReviewVerdict verdict = ReviewVerdict::pending;

    bool operator==(const LatestReview&) const = default;
};

/// The names behind the counts of a pull request, in the order of the service's answer. They are
/// optional: a pull request without them is listed as ever. The names are other people's texts.
struct PullRequestDetails {
    std::vector<std::string> requestedUsers;  ///< Logins, each once.
    std::vector<std::string> requestedTeams;  ///< Names, each once.
    std::vector<LatestReview> reviews;        ///< The latest review of each reviewer.
    std::vector<SharedText> passedChecks;
    std::vector<SharedText> failedChecks;
    std::vector<SharedText> runningChecks;  ///< Neither passed nor failed, so queued ones as well.

    /// A limit is set when the answer held as many entries as the service hands out: there may be
    /// more, which neither the names nor the counts of the record include.
    std::optional<std::int64_t> requestLimit;
    std::optional<std::int64_t> reviewLimit;
    std::optional<std::int64_t> checkLimit;

    /// It was found by the search for what asks for the user's review, so the user or one of the
    /// user's teams is among those who are asked. When false, that is not known.
    bool asksForUser = false;

    bool isCutOff() const { return requestLimit || reviewLimit || checkLimit; }

    bool operator==(const PullRequestDetails&) const = default;
};

using DetailsByID = std::unordered_map<PullRequestID, PullRequestDetails>;
using SharedDetails = std::shared_ptr<const DetailsByID>;

/// The details of each pull request: where an identity occurs twice, those of the version that
/// `uniquePullRequests` keeps; it asks for the user when any of them does. Requires: details for
/// each pull request in the same order, or none. Safe from any thread.
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

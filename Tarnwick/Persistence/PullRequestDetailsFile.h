#pragma once

#include "PullRequestKit/PullRequestDetails.h"
#include "Tarnwick/Persistence/PullRequestDiskCache.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace Tarnwick {

/// `PullRequestDetails` as the file keeps them: the checks by their places in `checkNames`.
struct KeptDetails {
    std::vector<std::string> requestedUsers;
    std::vector<std::string> requestedTeams;
    std::vector<PullRequestKit::LatestReview> reviews;
    std::vector<std::int64_t> passedChecks;
    std::vector<std::int64_t> failedChecks;
    std::vector<std::int64_t> runningChecks;
    std::optional<std::int64_t> requestLimit;
    std::optional<std::int64_t> reviewLimit;
    std::optional<std::int64_t> checkLimit;
    std::optional<bool> asksForUser;  ///< Kept only when true: otherwise it is not known.

    bool operator==(const KeptDetails&) const = default;
};

/// What the file keeps of one pull request. Each layer is optional, so that later versions can add
/// layers and an entry may lack any of them.
struct KeptPullRequest {
    PullRequestKit::PullRequestID id;
    std::optional<KeptDetails> details;

    bool operator==(const KeptPullRequest&) const = default;
};

/// The whole file.
struct KeptPullRequests {
    /// Files of any other version count as absent.
    static constexpr std::int64_t currentVersion = 1;

    std::int64_t version = currentVersion;
    PullRequestKit::Date refreshedAt{};   ///< The refresh that the details belong to.
    std::vector<std::string> checkNames;  ///< Each once, however many pull requests have it.
    std::vector<KeptPullRequest> pullRequests;

    bool operator==(const KeptPullRequests&) const = default;
};

/// The details of the snapshot's pull requests in the form of the file, and back. The second throws
/// `std::out_of_range` where a check has no name. Safe from any thread.
KeptPullRequests keptForm(
    const CachedPullRequestSnapshot& snapshot, const PullRequestKit::DetailsByID& details);
PullRequestKit::DetailsByID detailsOf(KeptPullRequests kept);

/// Where the details of the last snapshot's pull requests lie on disk. The file is optional:
/// without it, the list is as it would be, only without names behind its counts. A value; its
/// functions block and are safe from any thread.
struct PullRequestDetailsFile {
    /// A larger file is not read: it would delay the start.
    static constexpr std::size_t largestFile = std::size_t{32} * 1024 * 1024;

    std::filesystem::path fileURL;

    /// `pull-request-details.json` in the folder of the cache file.
    static PullRequestDetailsFile beside(const PullRequestDiskCache& cache);

    /// Replaces the file by the details of the snapshot's pull requests. Throws `CacheWriteError`;
    /// the old file is then as it was.
    void save(const CachedPullRequestSnapshot& snapshot, const PullRequestKit::DetailsByID& details)
        const;

    /// The details that belong to this snapshot. Empty when the file is missing, unreadable, of
    /// another version or of another refresh. Never throws, and leaves the file as it is.
    PullRequestKit::DetailsByID load(const CachedPullRequestSnapshot& snapshot) const noexcept;
};

}  // namespace Tarnwick

// Stored: do not rename.
template<>
struct PullRequestKit::Json::Fields<Tarnwick::KeptDetails> {
    using Details = Tarnwick::KeptDetails;
    static constexpr std::tuple table{
        defaultedField("requestedUsers", &Details::requestedUsers),
        defaultedField("requestedTeams", &Details::requestedTeams),
        defaultedField("reviews", &Details::reviews),
        defaultedField("passedChecks", &Details::passedChecks),
        defaultedField("failedChecks", &Details::failedChecks),
        defaultedField("runningChecks", &Details::runningChecks),
        field("requestLimit", &Details::requestLimit),
        field("reviewLimit", &Details::reviewLimit),
        field("checkLimit", &Details::checkLimit),
        field("asksForUser", &Details::asksForUser),
    };
};

// Stored: do not rename.
template<>
struct PullRequestKit::Json::Fields<Tarnwick::KeptPullRequest> {
    static constexpr std::tuple table{
        field("id", &Tarnwick::KeptPullRequest::id),
        field("details", &Tarnwick::KeptPullRequest::details),
    };
};

// Stored: do not rename.
template<>
struct PullRequestKit::Json::Fields<Tarnwick::KeptPullRequests> {
    static constexpr std::tuple table{
        field("version", &Tarnwick::KeptPullRequests::version),
        field("refreshedAt", &Tarnwick::KeptPullRequests::refreshedAt),
        field("checkNames", &Tarnwick::KeptPullRequests::checkNames),
        field("pullRequests", &Tarnwick::KeptPullRequests::pullRequests),
    };
};

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

/// `PullRequestDetails` as stored: checks are indexes into `checkNames`.
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
    std::optional<bool> asksForUser;  ///< Stored only when true.

    bool operator==(const KeptDetails&) const = default;
};

/// The stored data of a pull request. Each part is optional, for changes in later versions.
struct KeptPullRequest {
    PullRequestKit::PullRequestID id;
    std::optional<KeptDetails> details;

    bool operator==(const KeptPullRequest&) const = default;
};

struct KeptPullRequests {
    /// Other versions count as absent.
    static constexpr std::int64_t currentVersion = 1;

    std::int64_t version = currentVersion;
    PullRequestKit::Date refreshedAt{};   ///< The refresh that the details belong to.
    std::vector<std::string> checkNames;  ///< Without duplicates.
    std::vector<KeptPullRequest> pullRequests;

    bool operator==(const KeptPullRequests&) const = default;
};

/// Converts the details to the stored form and back. `detailsOf` throws `std::out_of_range` for an
/// invalid index. Safe from any thread.
KeptPullRequests keptForm(
    const CachedPullRequestSnapshot& snapshot, const PullRequestKit::DetailsByID& details);
PullRequestKit::DetailsByID detailsOf(KeptPullRequests kept);

/// The details of the last snapshot; without them names are missing. Blocks; safe from any thread.
struct PullRequestDetailsFile {
    /// Larger files are not read, because they would delay the start.
    static constexpr std::size_t largestFile = std::size_t{32} * 1024 * 1024;

    std::filesystem::path fileURL;

    /// `pull-request-details.json` beside the cache file.
    static PullRequestDetailsFile beside(const PullRequestDiskCache& cache);

    /// Replaces the file. Throws `CacheWriteError`; the old file is then unchanged.
    void save(const CachedPullRequestSnapshot& snapshot, const PullRequestKit::DetailsByID& details)
        const;

    /// The details of this snapshot. Empty when the file is missing, unreadable, of another version
    /// or of another refresh. Never throws.
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

#pragma once

#include "PullRequestKit/PullRequestDetails.h"
#include "Tarnwick/Persistence/PullRequestDiskCache.h"

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <vector>

namespace Tarnwick {

/// What the file beside the cache keeps of one pull request. Each layer is optional, so that later
/// versions can add layers and an entry may lack any of them.
struct KeptPullRequest {
    PullRequestKit::PullRequestID id;
    std::optional<PullRequestKit::PullRequestDetails> details;

    bool operator==(const KeptPullRequest&) const = default;
};

/// The whole file.
struct KeptPullRequests {
    /// Files of any other version count as absent.
    static constexpr std::int64_t currentVersion = 1;

    std::int64_t version = currentVersion;
    PullRequestKit::Date refreshedAt{};  ///< The refresh that the details belong to.
    std::vector<KeptPullRequest> pullRequests;

    bool operator==(const KeptPullRequests&) const = default;
};

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
        field("pullRequests", &Tarnwick::KeptPullRequests::pullRequests),
    };
};

#pragma once

#include "Tarnwick/Model/BlockedPullRequests.h"
#include "Tarnwick/Persistence/PullRequestDiskCache.h"

#include <cstddef>
#include <filesystem>

namespace Tarnwick {

/// Stores which pull requests are blocked, so that unblocked ones are reported after a restart,
/// too. Blocks; safe from any thread.
struct BlockedPullRequestsFile {
    /// Larger files are not read.
    static constexpr std::size_t largestFile = std::size_t{64} * 1024 * 1024;

    std::filesystem::path path;  ///< Need not exist.

    /// `blocked.json` beside the cache file.
    static BlockedPullRequestsFile beside(const PullRequestDiskCache& cache);

    /// Replaces the file, readable by its owner only. Throws `CacheWriteError`.
    void save(const BlockedPullRequests& blocked) const;

    /// Empty when the file is missing, unreadable or of another version. Never throws.
    BlockedPullRequests load() const noexcept;
};

}  // namespace Tarnwick

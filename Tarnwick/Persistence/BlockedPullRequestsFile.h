#pragma once

#include "Tarnwick/Model/BlockedPullRequests.h"
#include "Tarnwick/Persistence/PullRequestDiskCache.h"

#include <cstddef>
#include <filesystem>

namespace Tarnwick {

/// Where a program that notifies keeps which pull requests were blocked, so that it tells after a
/// restart, too, when they no longer are. A value; its functions block and are safe from any
/// thread.
struct BlockedPullRequestsFile {
    /// A larger file is none of ours, and is not read.
    static constexpr std::size_t largestFile = std::size_t{64} * 1024 * 1024;

    std::filesystem::path path;  ///< The file, which need not exist.

    /// `blocked.json` in the folder of the cache.
    static BlockedPullRequestsFile beside(const PullRequestDiskCache& cache);

    /// Replaces the file as a whole, for its owner alone. Throws `CacheWriteError`.
    void save(const BlockedPullRequests& blocked) const;

    /// Empty when the file is missing, cannot be read, or is of another version. Never throws, and
    /// leaves the file as it is.
    BlockedPullRequests load() const noexcept;
};

}  // namespace Tarnwick

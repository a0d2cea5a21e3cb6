#pragma once

#include "Tarnwick/Persistence/CachedPullRequestSnapshot.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <stdexcept>

namespace Tarnwick {

/// A file could not be written; `what()` is an English sentence for the user.
class CacheWriteError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The last snapshot on disk. Blocks; safe from any thread.
struct PullRequestDiskCache {
    /// Larger files are not read.
    static constexpr std::size_t largestFile = std::size_t{256} * 1024 * 1024;

    /// Need not exist.
    std::filesystem::path fileURL = defaultFile();

    /// `dev.tarnwick.Tarnwick/pull-requests.json` in the user's data folder.
    static std::filesystem::path defaultFile();

    /// Replaces the file atomically, readable by its owner only, and creates missing folders.
    /// Throws `CacheWriteError`; the old file is then unchanged.
    void save(const CachedPullRequestSnapshot& snapshot) const;

    /// Nothing when the file is missing, unreadable or invalid. Never throws.
    std::optional<CachedPullRequestSnapshot> load() const noexcept;
};

}  // namespace Tarnwick

#pragma once

#include "Tarnwick/Persistence/CachedPullRequestSnapshot.h"

#include <cstddef>
#include <filesystem>
#include <optional>
#include <stdexcept>

namespace Tarnwick {

/// A snapshot could not be written; `what()` is an English sentence.
class CacheWriteError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// Where the last snapshot lies on disk, and how it gets there and back. A value; its functions
/// block and are safe from any thread.
struct PullRequestDiskCache {
    /// A larger file is no cache of ours, and is not read.
    static constexpr std::size_t largestFile = std::size_t{256} * 1024 * 1024;

    /// The cache file, which need not exist.
    std::filesystem::path fileURL = defaultFile();

    /// `dev.tarnwick.Tarnwick/pull-requests.json` in the user's data folder.
    static std::filesystem::path defaultFile();

    /// Writes the snapshot for the file's owner alone, and makes the folders that are missing. The
    /// file is replaced as a whole once the new text is on disk; after a failure the old file is as
    /// it was. Throws `CacheWriteError`.
    void save(const CachedPullRequestSnapshot& snapshot) const;

    /// The snapshot, or nothing when the file is missing, cannot be read or holds anything else.
    /// Never throws, and leaves the file as it is.
    std::optional<CachedPullRequestSnapshot> load() const noexcept;
};

}  // namespace Tarnwick

#pragma once

#include "Tarnwick/Model/TurnMoves.h"
#include "Tarnwick/Persistence/PullRequestDiskCache.h"

#include <cstddef>
#include <filesystem>

namespace Tarnwick {

/// Where a program that notifies keeps whose turn it was and what the user was told of it, so that
/// nobody is told twice after a restart. A value; its functions block and are safe from any thread.
struct KnownTurnsFile {
    /// A larger file is none of ours, and is not read.
    static constexpr std::size_t largestFile = std::size_t{32} * 1024 * 1024;

    std::filesystem::path path;  ///< The file, which need not exist.

    /// `turns.json` in the folder of the cache.
    static KnownTurnsFile beside(const PullRequestDiskCache& cache);

    /// Replaces the file as a whole, for its owner alone. Throws `CacheWriteError`.
    void save(const KnownTurns& turns) const;

    /// Empty when the file is missing, cannot be read, or is of another version. Never throws, and
    /// leaves the file as it is.
    KnownTurns load() const noexcept;
};

}  // namespace Tarnwick

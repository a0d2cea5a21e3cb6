#pragma once

#include "Tarnwick/Model/TurnMoves.h"
#include "Tarnwick/Persistence/PullRequestDiskCache.h"

#include <cstddef>
#include <filesystem>

namespace Tarnwick {

/// Stores whose turn it was and what the user was notified of, so that a restart repeats no
/// notification. Blocks; safe from any thread.
struct KnownTurnsFile {
    /// Larger files are not read.
    static constexpr std::size_t largestFile = std::size_t{32} * 1024 * 1024;

    std::filesystem::path path;  ///< Need not exist.

    /// `turns.json` beside the cache file.
    static KnownTurnsFile beside(const PullRequestDiskCache& cache);

    /// Replaces the file, readable by its owner only. Throws `CacheWriteError`.
    void save(const KnownTurns& turns) const;

    /// Empty when the file is missing, unreadable or of another version. Never throws.
    KnownTurns load() const noexcept;
};

}  // namespace Tarnwick

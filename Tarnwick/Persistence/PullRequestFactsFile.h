#pragma once

#include "PullRequestKit/PullRequestFacts.h"
#include "Tarnwick/Persistence/PullRequestDiskCache.h"

#include <cstddef>
#include <filesystem>
#include <optional>

namespace Tarnwick {

struct KeptFacts {
    PullRequestKit::SharedFacts facts;  ///< May be null.
    std::optional<PullRequestKit::Quota> quota;
};

/// The stored facts of the listed pull requests. Without the file they are requested again. Blocks;
/// safe from any thread.
struct PullRequestFactsFile {
    /// Larger files are not read.
    static constexpr std::size_t largestFile = std::size_t{32} * 1024 * 1024;

    std::filesystem::path path;  ///< Need not exist.

    /// `pull-request-facts.json` beside the cache file.
    static PullRequestFactsFile beside(const PullRequestDiskCache& cache);

    /// Replaces the file, readable by its owner only. Throws `CacheWriteError`.
    void save(const KeptFacts& kept) const;

    /// Empty when the file is missing, unreadable or of another version. Never throws.
    KeptFacts load() const noexcept;
};

}  // namespace Tarnwick

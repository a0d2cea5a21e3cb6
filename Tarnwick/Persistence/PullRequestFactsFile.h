#pragma once

#include "PullRequestKit/PullRequestFacts.h"
#include "Tarnwick/Persistence/PullRequestDiskCache.h"

#include <cstddef>
#include <filesystem>
#include <optional>

namespace Tarnwick {

/// What is kept of the answers about facts.
struct KeptFacts {
    PullRequestKit::SharedFacts facts;  ///< Null is none.
    std::optional<PullRequestKit::Quota> quota;
};

/// Where the facts of the listed pull requests lie on disk. The file is optional: without it they
/// are asked for anew. A value; its functions block and are safe from any thread.
struct PullRequestFactsFile {
    /// A larger file is none of ours, and is not read.
    static constexpr std::size_t largestFile = std::size_t{32} * 1024 * 1024;

    std::filesystem::path path;  ///< The file, which need not exist.

    /// `pull-request-facts.json` in the folder of the cache.
    static PullRequestFactsFile beside(const PullRequestDiskCache& cache);

    /// Replaces the file as a whole, for its owner alone. Throws `CacheWriteError`.
    void save(const KeptFacts& kept) const;

    /// Nothing when the file is missing, cannot be read, or is of another version. Never throws,
    /// and leaves the file as it is.
    KeptFacts load() const noexcept;
};

}  // namespace Tarnwick

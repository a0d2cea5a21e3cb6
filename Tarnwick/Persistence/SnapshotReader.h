#pragma once

#include "Tarnwick/Persistence/PullRequestDiskCache.h"

#include <future>
#include <optional>

namespace Tarnwick {

/// Reads the last snapshot on a thread of its own from the moment it is made, so that a program
/// that starts can do other things meanwhile. Destruction waits for the end of the reading.
class SnapshotReader {
public:
    explicit SnapshotReader(PullRequestDiskCache cache);

    /// What `PullRequestDiskCache::load` yields. Blocks until it is there. To be called once.
    std::optional<CachedPullRequestSnapshot> take();

private:
    std::future<std::optional<CachedPullRequestSnapshot>> _snapshot;
};

}  // namespace Tarnwick

#include "Tarnwick/Persistence/SnapshotReader.h"

#include <utility>

namespace Tarnwick {

SnapshotReader::SnapshotReader(PullRequestDiskCache cache)
    : _snapshot(std::async(std::launch::async, [cache = std::move(cache)] { return cache.load(); }))
{}

std::optional<CachedPullRequestSnapshot> SnapshotReader::take()
{
    return _snapshot.get();
}

}  // namespace Tarnwick

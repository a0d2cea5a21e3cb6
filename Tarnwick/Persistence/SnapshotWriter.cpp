#include "Tarnwick/Persistence/SnapshotWriter.h"

#include <utility>

namespace Tarnwick {

SnapshotWriter::SnapshotWriter(PullRequestDiskCache cache)
    : _cache(std::move(cache))
    , _thread([this](std::stop_token stopToken) { run(std::move(stopToken)); })
{}

SnapshotWriter::~SnapshotWriter() = default;

void SnapshotWriter::save(CachedPullRequestSnapshot snapshot)
{
    const std::lock_guard lock(_mutex);
    _waiting.push_back(std::move(snapshot));
    _changed.notify_all();
}

void SnapshotWriter::flush()
{
    std::unique_lock lock(_mutex);
    _changed.wait(lock, [this] { return _waiting.empty() && !_isWriting; });
}

std::optional<std::string> SnapshotWriter::lastError() const
{
    const std::lock_guard lock(_mutex);
    return _lastError;
}

void SnapshotWriter::run(std::stop_token stopToken)
{
    while (const auto snapshot = next(stopToken)) {
        write(*snapshot);
    }
}

/// Waits for the next snapshot; nothing once the end is asked for and none is left.
std::optional<CachedPullRequestSnapshot> SnapshotWriter::next(const std::stop_token& stopToken)
{
    std::unique_lock lock(_mutex);
    if (!_changed.wait(lock, stopToken, [this] { return !_waiting.empty(); })) {
        return std::nullopt;
    }
    std::optional<CachedPullRequestSnapshot> snapshot = std::move(_waiting.front());
    _waiting.pop_front();
    _isWriting = true;
    return snapshot;
}

void SnapshotWriter::write(const CachedPullRequestSnapshot& snapshot)
{
    std::optional<std::string> error;
    try {
        _cache.save(snapshot);
    } catch (const std::exception& failure) {
        error = failure.what();
    }
    const std::lock_guard lock(_mutex);
    _isWriting = false;
    _lastError = std::move(error);
    _changed.notify_all();
}

}  // namespace Tarnwick

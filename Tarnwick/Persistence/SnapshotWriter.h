#pragma once

#include "Tarnwick/Persistence/PullRequestDiskCache.h"

#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <string>
#include <thread>

namespace Tarnwick {

/// Encodes and writes snapshots on a thread of its own, one after another in the order in which
/// they came. A snapshot that cannot be written leaves the file as it was and is dropped. Safe from
/// any thread.
class SnapshotWriter {
public:
    explicit SnapshotWriter(PullRequestDiskCache cache);

    SnapshotWriter(const SnapshotWriter&) = delete;
    SnapshotWriter& operator=(const SnapshotWriter&) = delete;

    /// Blocks until everything handed over is written.
    ~SnapshotWriter();

    /// Returns at once.
    void save(CachedPullRequestSnapshot snapshot);

    /// Blocks until everything handed over so far is written.
    void flush();

    /// Why the snapshot written last could not be written, or nothing. Whoever wants to know about
    /// one snapshot flushes first.
    std::optional<std::string> lastError() const;

private:
    void run(std::stop_token stopToken);
    std::optional<CachedPullRequestSnapshot> next(const std::stop_token& stopToken);
    void write(const CachedPullRequestSnapshot& snapshot);

    PullRequestDiskCache _cache;
    mutable std::mutex _mutex;
    std::condition_variable_any _changed;
    std::deque<CachedPullRequestSnapshot> _waiting;
    bool _isWriting = false;
    std::optional<std::string> _lastError;
    std::jthread _thread;  ///< Last, so that it ends before what it uses.
};

}  // namespace Tarnwick

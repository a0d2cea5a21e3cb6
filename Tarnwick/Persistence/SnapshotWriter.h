#pragma once

#include "PullRequestKit/PullRequestDetails.h"
#include "Tarnwick/Persistence/BlockedPullRequestsFile.h"
#include "Tarnwick/Persistence/KnownTurnsFile.h"
#include "Tarnwick/Persistence/PullRequestDiskCache.h"
#include "Tarnwick/Persistence/PullRequestFactsFile.h"

#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

namespace Tarnwick {

/// Writes snapshots and related files on a thread of its own. A newer write replaces a waiting one
/// of the same kind, so that a slow disk costs no memory. Failed writes are dropped; their files
/// stay unchanged. Safe from any thread.
class SnapshotWriter {
public:
    explicit SnapshotWriter(PullRequestDiskCache cache);

    SnapshotWriter(const SnapshotWriter&) = delete;
    SnapshotWriter& operator=(const SnapshotWriter&) = delete;

    /// Blocks until everything is written.
    ~SnapshotWriter();

    /// Returns at once. The details are written after the snapshot, beside it.
    void save(CachedPullRequestSnapshot snapshot, PullRequestKit::SharedDetails details = nullptr);
    void save(BlockedPullRequestsFile file, BlockedPullRequests blocked);
    void save(KnownTurnsFile file, KnownTurns turns);
    void save(PullRequestFactsFile file, KeptFacts facts);

    /// Blocks until everything queued so far is written.
    void flush();

private:
    using Write = std::function<void()>;

    enum class Kind {
        snapshot,
        blockedPullRequests,
        knownTurns,
        facts
    };

    struct Waiting {
        Kind kind;
        Write write;
    };

    void add(Kind kind, Write write);
    void run(std::stop_token stopToken);
    Write next(const std::stop_token& stopToken);
    void perform(const Write& write);

    PullRequestDiskCache _cache;
    std::mutex _mutex;
    std::condition_variable_any _changed;
    std::deque<Waiting> _waiting;  ///< At most one of each kind.
    bool _isWriting = false;
    std::jthread _thread;  ///< Last member: joined before the others are destroyed.
};

}  // namespace Tarnwick

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

/// Encodes and writes snapshots, and what is kept beside them, on a thread of its own. A later one
/// takes the place of one of its kind that still waits, so that a slow disk costs no memory. What
/// cannot be written leaves its file as it was and is dropped. Safe from any thread.
class SnapshotWriter {
public:
    explicit SnapshotWriter(PullRequestDiskCache cache);

    SnapshotWriter(const SnapshotWriter&) = delete;
    SnapshotWriter& operator=(const SnapshotWriter&) = delete;

    /// Blocks until everything handed over is written.
    ~SnapshotWriter();

    /// Return at once. The details of the snapshot's pull requests are written after it, beside it.
    void save(CachedPullRequestSnapshot snapshot, PullRequestKit::SharedDetails details = nullptr);
    void save(BlockedPullRequestsFile file, BlockedPullRequests blocked);
    void save(KnownTurnsFile file, KnownTurns turns);
    void save(PullRequestFactsFile file, KeptFacts facts);

    /// Blocks until everything handed over so far is written.
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
    std::deque<Waiting> _waiting;  ///< One of each kind at most.
    bool _isWriting = false;
    std::jthread _thread;  ///< Last, so that it ends before what it uses.
};

}  // namespace Tarnwick

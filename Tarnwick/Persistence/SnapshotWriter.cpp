#include "Tarnwick/Persistence/SnapshotWriter.h"

#include "Tarnwick/Persistence/PullRequestDetailsFile.h"

#include <utility>

namespace Tarnwick {

SnapshotWriter::SnapshotWriter(PullRequestDiskCache cache)
    : _cache(std::move(cache))
    , _thread([this](std::stop_token stopToken) { run(std::move(stopToken)); })
{}

SnapshotWriter::~SnapshotWriter() = default;

void SnapshotWriter::save(CachedPullRequestSnapshot snapshot, PullRequestKit::SharedDetails details)
{
    add(Kind::snapshot, [this, snapshot = std::move(snapshot), details = std::move(details)] {
        _cache.save(snapshot);
        if (details) {
            PullRequestDetailsFile::beside(_cache).save(snapshot, *details);
        }
    });
}

void SnapshotWriter::save(BlockedPullRequestsFile file, BlockedPullRequests blocked)
{
    add(Kind::blockedPullRequests,
        [file = std::move(file), blocked = std::move(blocked)] { file.save(blocked); });
}

void SnapshotWriter::save(KnownTurnsFile file, KnownTurns turns)
{
    add(Kind::knownTurns, [file = std::move(file), turns = std::move(turns)] { file.save(turns); });
}

void SnapshotWriter::save(PullRequestFactsFile file, KeptFacts facts)
{
    add(Kind::facts, [file = std::move(file), facts = std::move(facts)] { file.save(facts); });
}

void SnapshotWriter::add(Kind kind, Write write)
{
    const std::lock_guard lock(_mutex);
    std::erase_if(_waiting, [kind](const Waiting& waiting) { return waiting.kind == kind; });
    _waiting.push_back({kind, std::move(write)});
    _changed.notify_all();
}

void SnapshotWriter::flush()
{
    std::unique_lock lock(_mutex);
    _changed.wait(lock, [this] { return _waiting.empty() && !_isWriting; });
}

void SnapshotWriter::run(std::stop_token stopToken)
{
    while (const Write write = next(stopToken)) {
        perform(write);
    }
}

/// Waits for the next write; empty after a stop request when nothing is left.
SnapshotWriter::Write SnapshotWriter::next(const std::stop_token& stopToken)
{
    std::unique_lock lock(_mutex);
    if (!_changed.wait(lock, stopToken, [this] { return !_waiting.empty(); })) {
        return {};
    }
    Write write = std::move(_waiting.front().write);
    _waiting.pop_front();
    _isWriting = true;
    return write;
}

void SnapshotWriter::perform(const Write& write)
{
    try {
        write();
    } catch (const std::exception&) {  // NOLINT(bugprone-empty-catch): the next one is written.
    }
    const std::lock_guard lock(_mutex);
    _isWriting = false;
    _changed.notify_all();
}

}  // namespace Tarnwick

#pragma once

#include "Tarnwick/Model/LastList.h"
#include "Tarnwick/Persistence/PullRequestDiskCache.h"

#include <functional>
#include <future>
#include <memory>
#include <optional>

namespace Tarnwick {

/// Reads what the last run left, the settings and the list, on threads of its own from the moment
/// it is made, so that a program that starts can do other things meanwhile. Destruction waits for
/// the end of the reading.
class ReadAhead {
public:
    using OpenDefaults = std::function<std::shared_ptr<DefaultsStore>()>;

    /// `openDefaults` is called on another thread.
    ReadAhead(OpenDefaults openDefaults, PullRequestDiskCache cache);

    /// What the settings are stored in. Like `settings` it blocks until they have been read; from
    /// then on only the caller's thread uses it.
    const std::shared_ptr<DefaultsStore>& defaults() { return read().defaults; }

    /// What `SettingsStore::load` yields.
    const Settings& settings() { return read().settings; }

    /// What `lastList` makes of the snapshot. Blocks until it is there. To be called once and after
    /// the last call of the others: nothing that was read stays in memory here.
    std::optional<LastList> takeList();

private:
    struct Read {
        std::shared_ptr<DefaultsStore> defaults;
        Settings settings;
    };

    const Read& read() { return _read.get(); }

    std::shared_future<Read> _read;
    std::future<std::optional<LastList>> _list;
};

}  // namespace Tarnwick

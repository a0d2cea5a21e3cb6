#pragma once

#include "Tarnwick/Model/LastList.h"
#include "Tarnwick/Persistence/PullRequestDiskCache.h"

#include <functional>
#include <future>
#include <memory>
#include <optional>

namespace Tarnwick {

/// What takes long and needs no application yet, under way on threads of its own from the moment it
/// is made: reading the settings and the list that the last run left, and finding the installed
/// fonts. Destruction waits for all of it.
class Preload {
public:
    using OpenDefaults = std::function<std::shared_ptr<DefaultsStore>()>;

    /// The functions are called on other threads.
    Preload(
        OpenDefaults openDefaults,
        PullRequestDiskCache cache,
        std::function<void()> findFonts = [] {});

    /// To be called before anything asks for a font. Blocks until fonts are known.
    void waitForFonts() const { _fonts.wait(); }

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
    std::future<void> _fonts;
};

}  // namespace Tarnwick

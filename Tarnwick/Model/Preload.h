#pragma once

#include "Tarnwick/Model/LastList.h"
#include "Tarnwick/Persistence/PullRequestDiskCache.h"

#include <functional>
#include <future>
#include <memory>
#include <optional>

namespace Tarnwick {

/// Starts slow work on other threads before the application exists: reads the settings and the last
/// list, and loads the installed fonts. The destructor waits for all of it.
class Preload {
public:
    using OpenDefaults = std::function<std::shared_ptr<DefaultsStore>()>;

    /// The functions are called on other threads.
    Preload(
        OpenDefaults openDefaults,
        PullRequestDiskCache cache,
        std::function<void()> findFonts = [] {});

    /// Blocks until the fonts are loaded. Call before anything uses a font.
    void waitForFonts() const { _fonts.wait(); }

    /// Blocks until the settings are read. Afterwards only the caller's thread uses the store.
    const std::shared_ptr<DefaultsStore>& defaults() { return read().defaults; }

    /// As from `SettingsStore::load`. Blocks until they are read.
    const Settings& settings() { return read().settings; }

    /// As from `lastList`. Blocks until it is read. Call once, last: this releases what was read.
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

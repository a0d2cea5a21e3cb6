#pragma once

#include "GitHubProvider/Clocks.h"
#include "GitHubProvider/SystemLog.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace GitHub {

/// Writes what one search does to the log, a line for each step, and measures how long the steps
/// take. Belongs to one thread.
class SearchTrace {
public:
    struct Page {
        std::size_t bytes = 0;  ///< Of the answer.
        std::size_t nodes = 0;
        std::optional<std::int64_t> matches;  ///< Of the whole search, on all pages.
        bool hasNext = false;
    };

    /// Requires: a sink and a clock.
    SearchTrace(LogSink log, SteadyClock clock);

    /// May be called several times: the pages are counted and the time is taken over all of them.
    void searchStarted(const std::string& query);

    /// The one line that says that GitHub takes several repositories for all of them at once.
    void groupingStarted() const;
    void pageStarted();
    void pageHadErrors(std::size_t errors) const;
    void pageLoaded(const Page& page) const;
    void searchEnded(std::size_t nodes, std::size_t uniqueBaseRefs) const;

private:
    using Instant = std::chrono::steady_clock::time_point;

    void write(const std::string& text) const;
    std::string timeSince(Instant start) const;

    LogSink _log;
    SteadyClock _clock;
    std::optional<Instant> _searchStart;
    Instant _pageStart;
    std::size_t _pages = 0;
};

}  // namespace GitHub

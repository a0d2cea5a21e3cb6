#pragma once

#include "GitHubProvider/Clocks.h"
#include "GitHubProvider/SystemLog.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace GitHub {

/// Logs the steps of one search with their durations. Belongs to one thread.
class SearchTrace {
public:
    struct Page {
        std::size_t bytes = 0;  ///< Of the answer.
        std::size_t nodes = 0;
        std::optional<std::int64_t> matches;  ///< Of the whole search.
        bool hasNext = false;
    };

    SearchTrace(LogSink log, SteadyClock clock);

    /// May be called several times; pages and times are summed up.
    void searchStarted(const std::string& query);

    /// Logs that GitHub takes several repositories as all of them at once.
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

#include "GitHubProvider/SearchTrace.h"

#include "GitHubProvider/DurationText.h"

#include <utility>

namespace GitHub {

SearchTrace::SearchTrace(LogSink log, SteadyClock clock)
    : _log(std::move(log))
    , _clock(std::move(clock))
{}

void SearchTrace::searchStarted(const std::string& query)
{
    write("query=" + query);
    if (!_searchStart) {
        _searchStart = _clock();
    }
}

void SearchTrace::groupingStarted() const
{
    write("several repo: terms find less than each alone; repositories are now grouped with OR");
}

void SearchTrace::pageStarted()
{
    ++_pages;
    _pageStart = _clock();
}

void SearchTrace::pageHadErrors(std::size_t errors) const
{
    write("page=" + std::to_string(_pages) + " errors=" + std::to_string(errors));
}

void SearchTrace::pageLoaded(const Page& page) const
{
    write(
        "page=" + std::to_string(_pages) + " duration=" + timeSince(_pageStart) + " bytes="
        + std::to_string(page.bytes) + " nodes=" + std::to_string(page.nodes) + " matches="
        + std::to_string(page.matches.value_or(-1)) + " next=" + (page.hasNext ? "true" : "false"));
}

void SearchTrace::searchEnded(std::size_t nodes, std::size_t uniqueBaseRefs) const
{
    write(
        "total=" + timeSince(_searchStart.value_or(_clock())) + " pages=" + std::to_string(_pages)
        + " nodes=" + std::to_string(nodes) + " uniqueBaseRefs=" + std::to_string(uniqueBaseRefs));
}

void SearchTrace::write(const std::string& text) const
{
    _log("Tarnwick GitHub search: " + text);
}

std::string SearchTrace::timeSince(Instant start) const
{
    return durationText(_clock() - start);
}

}  // namespace GitHub

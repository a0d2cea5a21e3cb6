#pragma once

#include "GitHubProvider/Clocks.h"
#include "GitHubProvider/Gh.h"
#include "GitHubProvider/Search.h"
#include "GitHubProvider/SearchMemory.h"
#include "PullRequestKit/ReviewerScope.h"

#include <set>
#include <stop_token>
#include <string>

namespace GitHub {

/// Searches the pull requests of repositories, with as few searches as possible, and checks empty
/// results (see `RepositoryCounts`). What it learns goes into the memory and determines the form of
/// later searches. Safe from any thread.
class RepositorySearch {
public:
    /// The arguments must outlive it.
    RepositorySearch(
        const Gh& gh, const std::string& host, SearchMemory& memory, const WallClock& clock);

    /// The hits as from `searchEach`. Blocks; call on a worker thread. Throws what `searchEach`
    /// throws; a failed check is ignored.
    SearchResult run(
        PullRequestKit::ReviewerScope reviewerScope,
        const std::set<std::string>& repositories,
        SearchTrace& trace,
        const std::stop_token& stopToken) const;

private:
    struct Request;

    SearchResult searchIn(
        SearchForm form, const SearchBounds& bounds, const Request& request) const;
    SearchResult searchInGroups(const Request& request) const;
    bool isFoundToExclude(SearchKnowledge knowledge, const Request& request) const;
    void rememberRepository(
        SearchKnowledge knowledge, const SearchResult& result, const Request& request) const;
    PullRequestKit::Date now() const;

    const Gh& _gh;
    const std::string& _host;
    SearchMemory& _memory;
    const WallClock& _clock;
};

}  // namespace GitHub

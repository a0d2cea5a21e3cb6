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

/// Searches the pull requests of repositories, in as few searches as fit into arguments, and makes
/// sure that an empty answer means what it says: see `RepositoryCounts`. What it learns goes into
/// the memory and decides the form of all later searches. Safe from any thread.
class RepositorySearch {
public:
    /// The parts must outlive it.
    RepositorySearch(
        const Gh& gh, const std::string& host, SearchMemory& memory, const WallClock& clock);

    /// The hits as `searchEach` yields them. Blocks; call on a worker thread. Throws what
    /// `searchEach` throws; a question that fails changes nothing.
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

#pragma once

#include "SampleGitHub/Http.h"
#include "SampleGitHub/RequestKind.h"
#include "SampleGitHub/Scenario.h"
#include "SampleGitHub/SearchQuery.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace SampleGitHub {

struct GraphQlField;
struct GraphQlRequest;

/// The token of the sample's user.
inline constexpr std::string_view accountToken = "gho_tokenOfTheSampleGitHub";

/// GitHub's rate limit; it does not decrease.
struct Quota {
    std::int64_t remaining = 5000;
    std::int64_t limit = 5000;
    std::chrono::seconds end{3600};  ///< After the instant that ages are relative to.

    bool operator==(const Quota&) const = default;
};

/// The variations of GitHub.
struct GitHubOptions {
    RepositoryTerms terms = RepositoryTerms::any;
    std::set<std::string> withoutFields;  ///< The facts it does not know.
    Quota quota;
};

struct Answer {
    RequestKind kind = RequestKind::other;
    Response response;
};

/// Answers requests from a scenario and an instant. Interprets search terms, cursors, ids and
/// pages, but knows only Tarnwick's requests; all others get "Not Found". Renders everything on
/// construction, so that an answer of 1.6 MB takes about a millisecond. Safe from any thread.
class GitHub {
public:
    GitHub(Scenario scenario, PullRequestKit::Date now, GitHubOptions options = {});

    Answer answer(const Request& request) const;

private:
    Answer graphQl(const Request& request) const;
    std::string viewer() const;
    std::string searchPage(const GraphQlRequest& request) const;
    std::string searchCounts(const GraphQlRequest& request) const;
    std::vector<std::size_t> matches(
        const GraphQlRequest& request, const GraphQlField& field) const;
    Response rateLimit() const;
    std::string nodes(const GraphQlRequest& request) const;
    Response repositories(std::string_view query) const;
    bool isAuthorized(const Request& request) const;
    void renderRefs();

    Scenario _scenario;
    PullRequestKit::Date _now;
    GitHubOptions _options;
    std::vector<std::string> _searchNodes;  ///< In the order of the scenario's pull requests.
    std::vector<std::string> _repositories;
    std::vector<std::size_t> _repositoriesByName;
    std::unordered_map<std::string, std::string> _refNodes;
};

}  // namespace SampleGitHub

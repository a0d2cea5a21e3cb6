#pragma once

#include "GitHubProvider/Gh.h"
#include "PullRequestKit/RepositorySummary.h"

#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

namespace GitHub {

/// Parses the output of `gh`, one JSON object per line. Of duplicates the last wins. Ordered by
/// name. Throws `DecodingError`. Safe from any thread.
std::vector<PullRequestKit::RepositorySummary> decodeRepositories(std::string_view output);

/// All repositories of this host that the user can see. Blocks; call on a worker thread. Throws
/// `ProviderError`, `DecodingError` and what `Gh::run` throws.
std::vector<PullRequestKit::RepositorySummary> listRepositories(
    const Gh& gh, const std::string& host, std::stop_token stopToken);

}  // namespace GitHub

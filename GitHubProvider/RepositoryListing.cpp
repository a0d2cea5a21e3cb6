#include "GitHubProvider/RepositoryListing.h"

#include "GitHubProvider/APIRepository.h"
#include "GitHubProvider/RequestFailure.h"
#include "PullRequestKit/Json/Reading.h"
#include "PullRequestKit/LocalizedStandardComparison.h"

#include <algorithm>
#include <map>
#include <utility>

namespace GitHub {
namespace {

using PullRequestKit::RepositorySummary;

constexpr const char* endpoint =
    "user/repos?per_page=100&affiliation=owner,collaborator,organization_member";

constexpr const char* jqProgram = R"(.[] | {
  repository: .full_name,
  visibility,
  language,
  default_branch,
  archived
})";

RepositorySummary decodeLine(std::string_view line)
{
    auto repository = PullRequestKit::Json::decode<APIRepository>(line);
    return {
        .fullName = std::move(repository.repository),
        .visibility = std::move(repository.visibility),
        .language = std::move(repository.language),
        .defaultBranch = std::move(repository.defaultBranch),
        .isArchived = repository.archived};
}

}  // namespace

std::vector<RepositorySummary> decodeRepositories(std::string_view output)
{
    std::map<std::string, RepositorySummary> byName;
    while (!output.empty()) {
        const std::size_t end = std::min(output.find('\n'), output.size());
        if (end > 0) {
            RepositorySummary summary = decodeLine(output.substr(0, end));
            const std::string name = summary.fullName;
            byName.insert_or_assign(name, std::move(summary));
        }
        output.remove_prefix(std::min(end + 1, output.size()));
    }
    std::vector<RepositorySummary> summaries;
    summaries.reserve(byName.size());
    for (auto& [name, summary] : byName) {
        summaries.push_back(std::move(summary));
    }
    PullRequestKit::sortByLocalizedName(summaries, [](const RepositorySummary& summary) {
        return std::string_view(summary.fullName);
    });
    return summaries;
}

std::vector<RepositorySummary> listRepositories(
    const Gh& gh, const std::string& host, std::stop_token stopToken)
{
    const CommandResult result =
        gh.run({"api", "--hostname", host, endpoint, "--paginate", "--jq", jqProgram}, stopToken);
    if (result.status != 0) {
        throwRequestFailure(failureText(result, "gh could not load repositories."));
    }
    return decodeRepositories(result.standardOutput);
}

}  // namespace GitHub

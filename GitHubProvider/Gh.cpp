#include "GitHubProvider/Gh.h"

#include "GitHubProvider/Text.h"
#include "PullRequestKit/Errors.h"

#include <cassert>
#include <utility>

namespace GitHubProvider {

Gh::Gh(
    std::optional<std::filesystem::path> executable, std::shared_ptr<const CommandRunning> runner)
    : _executable(std::move(executable))
    , _runner(std::move(runner))
{
    assert(_runner != nullptr);
}

void Gh::requireFound() const
{
    if (!_executable) {
        throw PullRequestKit::ProviderError("GitHub CLI (gh) was not found.");
    }
}

CommandResult Gh::run(const std::vector<std::string>& arguments, std::stop_token stopToken) const
{
    requireFound();
    return _runner->run(*_executable, arguments, std::move(stopToken));
}

std::string failureText(const CommandResult& result, const std::string& fallback)
{
    std::string text = trimText(decodeText(result.standardError));
    return text.empty() ? fallback : text;
}

}  // namespace GitHubProvider

#include "GitHubProvider/Gh.h"

#include "GitHubProvider/Text.h"
#include "PullRequestKit/Errors.h"

#include <cassert>
#include <utility>

namespace GitHubProvider {
namespace {

PullRequestKit::ProviderError notFound()
{
    return PullRequestKit::ProviderError("GitHub CLI (gh) was not found.");
}

}  // namespace

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
        throw notFound();
    }
}

CommandResult Gh::run(const std::vector<std::string>& arguments, std::stop_token stopToken) const
{
    if (!_executable) {
        throw notFound();
    }
    return _runner->run(*_executable, arguments, std::move(stopToken));
}

std::string failureText(const CommandResult& result, const std::string& fallback)
{
    std::string text = trimText(decodeText(result.standardError));
    return text.empty() ? fallback : text;
}

}  // namespace GitHubProvider

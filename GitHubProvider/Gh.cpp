#include "GitHubProvider/Gh.h"

#include "GitHubProvider/Text.h"
#include "PullRequestKit/Errors.h"

#include <cassert>
#include <system_error>
#include <utility>

namespace GitHub {
namespace {

PullRequestKit::ProviderError notFound()
{
    return PullRequestKit::ProviderError("GitHub CLI (gh) was not found.");
}

}  // namespace

std::optional<std::filesystem::path> findGH(
    const Environment& environment, const IsExecutable& isExecutable)
{
    return findProgram(
        environment,
        "gh",
        isExecutable,
        {"/opt/homebrew/bin/gh", "/usr/local/bin/gh", "/usr/bin/gh"});
}

Gh::Gh(FindGh find, std::shared_ptr<const CommandRunning> runner)
    : _find(std::move(find))
    , _runner(std::move(runner))
{
    assert(_find && _runner != nullptr);
}

std::optional<std::filesystem::path> Gh::executable() const
{
    const std::lock_guard lock(_mutex);
    if (!_executable) {
        _executable = _find();
    }
    return _executable;
}

void Gh::forget() const
{
    const std::lock_guard lock(_mutex);
    _executable.reset();
}

void Gh::requireFound() const
{
    if (!isFound()) {
        throw notFound();
    }
}

CommandResult Gh::run(const std::vector<std::string>& arguments, std::stop_token stopToken) const
{
    const auto found = executable();
    if (!found) {
        throw notFound();
    }
    try {
        return _runner->run(*found, arguments, std::move(stopToken));
    } catch (const std::system_error&) {
        // It may have been removed or installed elsewhere.
        forget();
        throw;
    }
}

std::string failureText(const CommandResult& result, const std::string& fallback)
{
    std::string text = trimText(decodeText(result.standardError));
    return text.empty() ? fallback : text;
}

}  // namespace GitHub

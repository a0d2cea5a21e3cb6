#pragma once

#include "GitHubProvider/Process/CommandRunning.h"
#include "GitHubProvider/Process/Environment.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace GitHub {

/// Finds `gh`, first in three fixed places, then on PATH. Safe from any thread.
std::optional<std::filesystem::path> findGH(
    const Environment& environment, const IsExecutable& isExecutable = isExecutableFile);

/// Finds the executable `gh`, or nothing. Called from several threads, one at a time.
using FindGh = std::function<std::optional<std::filesystem::path>()>;

/// The GitHub command-line client. It is located when first needed, and again after it was not
/// found or could not be started. Safe from any thread.
class Gh {
public:
    Gh(FindGh find, std::shared_ptr<const CommandRunning> runner);

    bool isFound() const { return executable().has_value(); }

    /// Throws `ProviderError` when `gh` is not found.
    void requireFound() const;

    /// Runs `gh`; a status other than 0 is not an error. Blocks; call on a worker thread. Throws
    /// what `requireFound` and `CommandRunning::run` throw.
    CommandResult run(const std::vector<std::string>& arguments, std::stop_token stopToken) const;

private:
    std::optional<std::filesystem::path> executable() const;
    void forget() const;

    FindGh _find;
    mutable std::mutex _mutex;
    mutable std::optional<std::filesystem::path> _executable;
    std::shared_ptr<const CommandRunning> _runner;
};

/// Standard error as trimmed text, or `fallback` if it is empty. Safe from any thread.
std::string failureText(const CommandResult& result, const std::string& fallback);

}  // namespace GitHub

#pragma once

#include "GitHubProvider/CommandRunning.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <vector>

namespace GitHubProvider {

/// The GitHub command-line client of this machine, and what runs it.
class Gh {
public:
    /// Without an executable `gh` counts as not installed. Requires: a runner.
    Gh(std::optional<std::filesystem::path> executable,
       std::shared_ptr<const CommandRunning> runner);

    bool isFound() const { return _executable.has_value(); }

    /// Throws `ProviderError` when `gh` was not found.
    void requireFound() const;

    /// Runs `gh` with these arguments; a status other than 0 is no error here. Blocks; call on a
    /// worker thread. Throws what `CommandRunning::run` throws, and as `requireFound`.
    CommandResult run(const std::vector<std::string>& arguments, std::stop_token stopToken) const;

private:
    std::optional<std::filesystem::path> _executable;
    std::shared_ptr<const CommandRunning> _runner;
};

/// Standard error as one text without the white space at its ends, or `fallback` when nothing is
/// left. Safe from any thread.
std::string failureText(const CommandResult& result, const std::string& fallback);

}  // namespace GitHubProvider

#pragma once

#include "GitHubProvider/Process/ChildProcess.h"
#include "GitHubProvider/Process/CommandRunning.h"

#include <chrono>
#include <cstddef>

namespace GitHub {

/// Runs programs as child processes on the calling thread; see `ChildProcess` for what they
/// inherit.
/// A child is asked to end (SIGTERM), never killed, and always waited for: a call lasts as long as
/// a child that ignores the signal. Before the timeout, a call also lasts as long as any process
/// keeps the child's pipes open.
class ProcessCommandRunner final : public CommandRunning {
public:
    static constexpr std::size_t defaultOutputLimit = std::size_t{64} << 20;

    /// `timeout` limits each run, including the time the machine sleeps. `outputLimit` limits each
    /// stream, in bytes; a program that exceeds it is terminated and `run` throws `ProviderError`.
    explicit ProcessCommandRunner(
        std::chrono::nanoseconds timeout, std::size_t outputLimit = defaultOutputLimit);

    ProcessCommandRunner(
        std::chrono::nanoseconds timeout,
        ChildSettings settings,
        std::size_t outputLimit = defaultOutputLimit);

    CommandResult run(
        const std::filesystem::path& executable,
        const std::vector<std::string>& arguments,
        std::stop_token stopToken) const override;

private:
    std::chrono::nanoseconds _timeout;
    ChildSettings _settings;
    std::size_t _outputLimit;
};

}  // namespace GitHub

#pragma once

#include "GitHubProvider/Process/ChildProcess.h"
#include "GitHubProvider/Process/CommandRunning.h"

#include <chrono>
#include <cstddef>

namespace GitHub {

/// Runs programs as child processes, with the standard input, environment and working directory of
/// this one, in sessions of their own. The calling thread does all the work and no other thread is
/// started.
///
/// A child is only ever asked to end (SIGTERM) and always waited for, so a call lasts as long as a
/// child that takes no notice. Until the time limit a call also lasts as long as somebody holds the
/// child's pipes open; after the limit, or once it is stopped, only as long as the child.
class ProcessCommandRunner final : public CommandRunning {
public:
    static constexpr std::size_t defaultOutputLimit = std::size_t{64} << 20;

    /// `timeout` limits each run, by a clock that nobody sets and that counts on while the machine
    /// sleeps. `outputLimit`, in bytes, is what either stream may bring; a program that prints more
    /// is ended, and `run` throws `ProviderError`.
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

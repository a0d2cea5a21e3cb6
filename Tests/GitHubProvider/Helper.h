#pragma once

#include "GitHubProvider/Process/ProcessCommandRunner.h"

#include <chrono>
#include <future>
#include <stop_token>
#include <string>
#include <vector>

/// Where the process helper lies.
std::filesystem::path helperPath();

/// The bytes that the helper prints when it is asked for so many.
std::string helperPattern(std::size_t count);

/// Runs the helper to its end, with a time limit that no test comes near.
GitHub::CommandResult runHelper(
    const std::vector<std::string>& arguments, std::stop_token stopToken = {});

/// A run of the helper on another thread. It is stopped when the test forgets to end it.
class BackgroundRun {
public:
    explicit BackgroundRun(
        const std::vector<std::string>& arguments,
        std::chrono::nanoseconds timeout = std::chrono::seconds{50});

    ~BackgroundRun() { stop(); }

    BackgroundRun(const BackgroundRun&) = delete;
    BackgroundRun& operator=(const BackgroundRun&) = delete;

    void stop() { _stopSource.request_stop(); }

    bool hasEnded() const;

    /// Waits for the end. Throws what the run threw.
    GitHub::CommandResult result() { return _result.get(); }

private:
    std::stop_source _stopSource;
    std::future<GitHub::CommandResult> _result;
};

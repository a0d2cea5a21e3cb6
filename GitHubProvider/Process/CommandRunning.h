#pragma once

#include <cstdint>
#include <filesystem>
#include <stop_token>
#include <string>
#include <vector>

namespace GitHub {

/// What came of a command. A status other than 0 is no error here: the caller interprets it.
struct CommandResult {
    std::int32_t status = 0;     ///< The exit status, or 128 and the number of the ending signal.
    std::string standardOutput;  ///< All bytes as they came; empty when there were none.
    std::string standardError;   ///< The same for standard error.

    bool operator==(const CommandResult&) const = default;
};

/// Runs programs. The seam at which tests put a scripted substitute.
class CommandRunning {
public:
    CommandRunning() = default;
    CommandRunning(const CommandRunning&) = delete;
    CommandRunning& operator=(const CommandRunning&) = delete;
    virtual ~CommandRunning() = default;

    /// Runs `executable` with `arguments` (without the program's name) and waits for its end.
    /// Blocks; call on a worker thread. Several threads may call at once. Throws `ProviderError`
    /// when the time limit expires or a pipe fails, `std::system_error` when the program cannot be
    /// started, and `CancellationError` once `stopToken` is stopped.
    virtual CommandResult run(
        const std::filesystem::path& executable,
        const std::vector<std::string>& arguments,
        std::stop_token stopToken) const = 0;
};

}  // namespace GitHub

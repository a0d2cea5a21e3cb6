#pragma once

#include <cstdint>
#include <filesystem>
#include <stop_token>
#include <string>
#include <vector>

namespace GitHub {

/// The result of a command. A status other than 0 is not an error here.
struct CommandResult {
    std::int32_t status = 0;     ///< The exit status, or 128 plus the signal number.
    std::string standardOutput;  ///< Raw bytes.
    std::string standardError;   ///< Raw bytes.

    bool operator==(const CommandResult&) const = default;
};

/// Runs programs. Tests substitute it.
class CommandRunning {
public:
    CommandRunning() = default;
    CommandRunning(const CommandRunning&) = delete;
    CommandRunning& operator=(const CommandRunning&) = delete;
    virtual ~CommandRunning() = default;

    /// Runs `executable` with `arguments` (without the program's name) and waits for its end.
    /// Blocks; call on a worker thread; safe from any thread. Throws `ProviderError` on a timeout
    /// or a failed pipe, `std::system_error` when the start fails, and `CancellationError` once
    /// `stopToken` is stopped.
    virtual CommandResult run(
        const std::filesystem::path& executable,
        const std::vector<std::string>& arguments,
        std::stop_token stopToken) const = 0;
};

}  // namespace GitHub

#pragma once

#include "GitHubProvider/FileDescriptor.h"
#include "GitHubProvider/ProcessController.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

#include <sys/types.h>

namespace GitHubProvider {

/// A program that runs as a child of this one. Its standard output and standard error are pipes;
/// standard input, environment and working directory are this program's own, no further descriptor
/// is passed on, no signal is blocked or ignored. `TerminableProcess`'s functions are safe from any
/// thread, the others belong to one.
///
/// Requires: nobody else waits for children that are not theirs, and SIGCHLD is not ignored.
class ChildProcess final : public TerminableProcess {
public:
    /// Starts `executable`, a path that is not searched for, with `arguments` (without the
    /// program's name). Throws what `launchError` makes, and leaves no child then.
    ChildProcess(
        const std::filesystem::path& executable, const std::vector<std::string>& arguments);

    /// Asks a child that nobody has waited for to end, and waits.
    ~ChildProcess() override;

    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    bool isRunning() const override;
    void terminate() const override;

    /// For `poll`: readable once the child has ended.
    int descriptor() const { return _descriptor.number(); }

    /// The reading ends of the pipes; each can be taken once.
    FileDescriptor takeStandardOutput() { return std::move(_standardOutput); }

    FileDescriptor takeStandardError() { return std::move(_standardError); }

    /// Blocks until the child has ended and removes it from the system's table. Yields its exit
    /// status, or 128 and the number of the signal that ended it. Requires: not called before.
    std::int32_t wait();

private:
    void abandon();

    pid_t _id = -1;
    FileDescriptor _descriptor;
    FileDescriptor _standardOutput;
    FileDescriptor _standardError;
};

/// The error for a program that cannot be started: "Could not start PATH: REASON".
std::system_error launchError(int errorNumber, const std::filesystem::path& executable);

}  // namespace GitHubProvider

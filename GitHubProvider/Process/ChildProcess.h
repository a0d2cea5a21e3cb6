#pragma once

#include "GitHubProvider/Process/FileDescriptor.h"
#include "GitHubProvider/Process/ProcessController.h"

#include <cstdint>
#include <filesystem>
#include <map>
#include <mutex>
#include <string>
#include <system_error>
#include <vector>

#include <sys/types.h>

namespace GitHub {

/// What a program is started with beyond its arguments, and how it is asked to end.
struct ChildSettings {
    enum class Reach {
        group,    ///< The program and whatever it has started in its process group.
        program,  ///< The program alone: what it has started outlives it.
    };

    /// Variables that are added to this program's own, or take their place.
    std::map<std::string, std::string> variables = {};
    Reach reach = Reach::group;
};

/// A program that runs as a child of this one, in a session of its own: no terminal stops it, asks
/// through it or sends it signals, and it has a process group to itself. Its standard output and
/// standard error are pipes; standard input, environment and working directory are this program's
/// own, but a terminal is not handed on. No further descriptor is passed on, no signal is blocked
/// or ignored. `TerminableProcess`'s functions are safe from any thread, the others belong to one.
///
/// Requires: nobody else waits for children that are not theirs, and SIGCHLD is not ignored.
class ChildProcess final : public TerminableProcess {
public:
    /// Starts `executable`, a path that is not searched for, with `arguments` (without the
    /// program's name). Throws what `launchError` makes, and leaves no child then.
    ChildProcess(
        const std::filesystem::path& executable,
        const std::vector<std::string>& arguments,
        const ChildSettings& settings = {});

    /// Asks a child that nobody has waited for to end, and waits.
    ~ChildProcess() override;

    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// True until the child was waited for: what it has started may run on when it has ended.
    bool isRunning() const override;

    /// Sends SIGTERM, and SIGCONT, without which a stopped process would not take it.
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
    void askToEnd() const;

    ChildSettings::Reach _reach;
    mutable std::mutex _mutex;  ///< Guards the number: after the waiting it is another's.
    pid_t _id = -1;
    FileDescriptor _descriptor;
    FileDescriptor _standardOutput;
    FileDescriptor _standardError;
};

/// The error for a program that cannot be started: "Could not start PATH: REASON".
std::system_error launchError(int errorNumber, const std::filesystem::path& executable);

}  // namespace GitHub

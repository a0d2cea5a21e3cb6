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

/// How a program is started and terminated.
struct ChildSettings {
    enum class Reach {
        group,    ///< The program and the rest of its process group.
        program,  ///< The program only; its own children may outlive it.
    };

    /// Added to this program's environment or replacing it.
    std::map<std::string, std::string> variables = {};
    Reach reach = Reach::group;
};

/// A child process in a session and process group of its own, so without a terminal. Standard
/// output and error are pipes. Standard input, environment and working directory are inherited, but
/// terminal input is replaced by /dev/null. No other descriptors are inherited; signals are reset.
/// The functions of `TerminableProcess` are safe from any thread, the others belong to one thread.
/// Requires: nobody else reaps this child, and SIGCHLD is not ignored.
class ChildProcess final : public TerminableProcess {
public:
    /// Starts `executable`, a path that is not searched on PATH; `arguments` exclude the program's
    /// name. Throws `launchError`.
    ChildProcess(
        const std::filesystem::path& executable,
        const std::vector<std::string>& arguments,
        const ChildSettings& settings = {});

    /// Terminates a child that was not waited for, and waits.
    ~ChildProcess() override;

    ChildProcess(const ChildProcess&) = delete;
    ChildProcess& operator=(const ChildProcess&) = delete;

    /// True until the child is reaped: its own children may still run.
    bool isRunning() const override;

    /// Sends SIGTERM, and SIGCONT to wake a stopped process.
    void terminate() const override;

    /// For `poll`: readable once the child has ended.
    int descriptor() const { return _descriptor.number(); }

    /// The read ends of the pipes. Each can be taken once.
    FileDescriptor takeStandardOutput() { return std::move(_standardOutput); }

    FileDescriptor takeStandardError() { return std::move(_standardError); }

    /// Blocks until the child has ended and reaps it. Returns its exit status, or 128 plus the
    /// signal number. Requires: called once.
    std::int32_t wait();

private:
    void abandon();
    void askToEnd() const;

    ChildSettings::Reach _reach;
    mutable std::mutex _mutex;  ///< Guards `_id`, which is invalid once reaped.
    pid_t _id = -1;
    FileDescriptor _descriptor;
    FileDescriptor _standardOutput;
    FileDescriptor _standardError;
};

/// "Could not start PATH: REASON".
std::system_error launchError(int errorNumber, const std::filesystem::path& executable);

}  // namespace GitHub

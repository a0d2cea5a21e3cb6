#pragma once

#include <memory>
#include <mutex>

namespace GitHub {

/// A process that can be asked to end. Implementations are safe from any thread.
class TerminableProcess {
public:
    TerminableProcess() = default;
    TerminableProcess(const TerminableProcess&) = delete;
    TerminableProcess& operator=(const TerminableProcess&) = delete;
    virtual ~TerminableProcess() = default;

    virtual bool isRunning() const = 0;

    /// Sends the polite request to end, which a process may answer late or not at all.
    virtual void terminate() const = 0;
};

/// Carries the wish to end one command to its process, even when the wish comes before there is
/// one. Its flags only ever turn true; it serves one command. Safe from any thread.
class ProcessController {
public:
    /// Hands over the launched process; ends it at once where `cancel` has come first.
    void registerProcess(const std::shared_ptr<const TerminableProcess>& process);

    /// Ends the process if it is running, else the one that is registered later.
    void cancel();

    /// Notes that the time limit expired, and cancels.
    void timeOut();

    bool hasTimedOut() const;

private:
    mutable std::mutex _lock;
    std::shared_ptr<const TerminableProcess> _process;
    bool _isCancelled = false;
    bool _hasTimedOut = false;
};

}  // namespace GitHub

#pragma once

#include <memory>
#include <mutex>

namespace GitHub {

/// A process that can be terminated. Implementations are safe from any thread.
class TerminableProcess {
public:
    TerminableProcess() = default;
    TerminableProcess(const TerminableProcess&) = delete;
    TerminableProcess& operator=(const TerminableProcess&) = delete;
    virtual ~TerminableProcess() = default;

    virtual bool isRunning() const = 0;

    /// Asks the process to end. It may react late or not at all.
    virtual void terminate() const = 0;
};

/// Cancels one command, even before its process exists. Single use. Safe from any thread.
class ProcessController {
public:
    /// Sets the launched process; terminates it at once after `cancel`.
    void registerProcess(const std::shared_ptr<const TerminableProcess>& process);

    /// Terminates the process if it is running, or as soon as one is registered.
    void cancel();
    void timeOut();

    bool hasTimedOut() const;

private:
    mutable std::mutex _lock;
    std::shared_ptr<const TerminableProcess> _process;
    bool _isCancelled = false;
    bool _hasTimedOut = false;
};

}  // namespace GitHub

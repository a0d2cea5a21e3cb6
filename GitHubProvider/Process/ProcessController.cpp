#include "GitHubProvider/Process/ProcessController.h"

namespace GitHub {
namespace {

/// Called without the lock: this may take time.
void terminateIfRunning(const TerminableProcess& process)
{
    if (process.isRunning()) {
        process.terminate();
    }
}

}  // namespace

void ProcessController::registerProcess(const std::shared_ptr<const TerminableProcess>& process)
{
    bool isCancelled = false;
    {
        const std::lock_guard guard(_lock);
        _process = process;
        isCancelled = _isCancelled;
    }
    if (isCancelled) {
        terminateIfRunning(*process);
    }
}

void ProcessController::cancel()
{
    std::shared_ptr<const TerminableProcess> process;
    {
        const std::lock_guard guard(_lock);
        _isCancelled = true;
        process = _process;
    }
    if (process) {
        terminateIfRunning(*process);
    }
}

void ProcessController::timeOut()
{
    {
        const std::lock_guard guard(_lock);
        _hasTimedOut = true;
    }
    cancel();
}

bool ProcessController::hasTimedOut() const
{
    const std::lock_guard guard(_lock);
    return _hasTimedOut;
}

}  // namespace GitHub

#include "GitHubProvider/Process/ProcessCommandRunner.h"

#include "GitHubProvider/Process/ChildProcess.h"
#include "GitHubProvider/Process/PipeReader.h"
#include "PullRequestKit/Errors.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <ctime>
#include <exception>
#include <memory>
#include <span>
#include <system_error>
#include <utility>

#include <poll.h>
#include <sys/eventfd.h>
#include <sys/timerfd.h>

namespace GitHub {
namespace {

using PullRequestKit::CancellationError;
using PullRequestKit::ProviderError;

constexpr std::chrono::nanoseconds never = std::chrono::nanoseconds::max();

/// Includes the time the machine sleeps.
std::chrono::nanoseconds timeSinceBoot()
{
    timespec time{};
    ::clock_gettime(CLOCK_BOOTTIME, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

std::chrono::nanoseconds deadlineAfter(std::chrono::nanoseconds timeout)
{
    const std::chrono::nanoseconds now = timeSinceBoot();
    // A zero value would disarm the timer.
    const auto atOnce = std::chrono::nanoseconds(1);
    return timeout < never - now ? std::max(now + timeout, atOnce) : never;
}

/// Readable at the deadline. Unlike the timeout of `poll`, it includes the time the machine sleeps.
FileDescriptor openTimer(std::chrono::nanoseconds deadline, const std::filesystem::path& executable)
{
    FileDescriptor timer(::timerfd_create(CLOCK_BOOTTIME, TFD_CLOEXEC));
    const auto seconds = std::chrono::floor<std::chrono::seconds>(deadline);
    itimerspec expiry{};
    expiry.it_value = {seconds.count(), (deadline - seconds).count()};
    const bool isSet =
        timer.isOpen()
        && (deadline == never
            || ::timerfd_settime(timer.number(), TFD_TIMER_ABSTIME, &expiry, nullptr) == 0);
    if (!isSet) {
        throw launchError(errno, executable);
    }
    return timer;
}

/// Readable once the call is stopped.
FileDescriptor openWakeUp(const std::filesystem::path& executable)
{
    FileDescriptor wakeUp(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!wakeUp.isOpen()) {
        throw launchError(errno, executable);
    }
    return wakeUp;
}

/// Waits for one of `polled`. Returns without events after a signal.
void waitForEvents(std::span<pollfd> polled)
{
    if (::poll(polled.data(), polled.size(), -1) >= 0) {
        return;
    }
    if (errno != EINTR) {
        throw std::system_error(
            errno, std::generic_category(), "Could not wait for the output of a program");
    }
    for (pollfd& entry : polled) {
        entry.revents = 0;
    }
}

/// Follows a child process to its end. The session is given up when it is stopped, times out,
/// exceeds the output limit or fails to read. Its output is then discarded, so that a child that
/// still writes can end. The child is reaped last, so that the rest of its process group can still
/// be terminated.
class ProcessSession {
public:
    ProcessSession(
        std::shared_ptr<ChildProcess> process,
        ProcessController& controller,
        const std::string& programName,
        std::size_t outputLimit)
        : _process(std::move(process))
        , _controller(controller)
        , _output(_process->takeStandardOutput(), programName, outputLimit)
        , _error(_process->takeStandardError(), programName, outputLimit)
    {}

    void follow(const FileDescriptor& wakeUp, const FileDescriptor& timer)
    {
        while (!isOver()) {
            std::array<pollfd, 5> polled{{
                {_isGivenUp ? -1 : wakeUp.number(), POLLIN, 0},
                {_hasChildEnded ? -1 : _process->descriptor(), POLLIN, 0},
                {_output.descriptor(), POLLIN, 0},
                {_error.descriptor(), POLLIN, 0},
                {_isGivenUp ? -1 : timer.number(), POLLIN, 0},
            }};
            waitForEvents(polled);
            if (polled[0].revents != 0) {
                giveUp();
            }
            _hasChildEnded = _hasChildEnded || polled[1].revents != 0;
            read(_output, polled[2]);
            read(_error, polled[3]);
            if (polled[4].revents != 0 && !isOver() && !_isGivenUp) {
                _controller.timeOut();
                giveUp();
            }
        }
        _status = _process->wait();
    }

    /// Throws when a pipe failed or exceeded the limit. Without output when given up for another
    /// reason.
    CommandResult takeResult()
    {
        if (_failure) {
            std::rethrow_exception(_failure);
        }
        return {_status, _output.takeBytes(), _error.takeBytes()};
    }

private:
    bool isOver() const
    {
        return _hasChildEnded && (_isGivenUp || (_output.isAtEnd() && _error.isAtEnd()));
    }

    void read(PipeReader& reader, const pollfd& polled)
    {
        if (polled.revents == 0) {
            return;
        }
        try {
            reader.read();
        } catch (const ProviderError&) {
            if (!_isGivenUp) {
                _failure = std::current_exception();
                _controller.cancel();
                giveUp();
            }
        }
    }

    void giveUp()
    {
        _isGivenUp = true;
        _output.discard();
        _error.discard();
    }

    std::shared_ptr<ChildProcess> _process;
    ProcessController& _controller;
    PipeReader _output;
    PipeReader _error;
    std::int32_t _status = 0;
    bool _hasChildEnded = false;
    std::exception_ptr _failure;
    bool _isGivenUp = false;
};

}  // namespace

ProcessCommandRunner::ProcessCommandRunner(
    std::chrono::nanoseconds timeout, std::size_t outputLimit)
    : ProcessCommandRunner(timeout, ChildSettings{}, outputLimit)
{}

ProcessCommandRunner::ProcessCommandRunner(
    std::chrono::nanoseconds timeout, ChildSettings settings, std::size_t outputLimit)
    : _timeout(timeout)
    , _settings(std::move(settings))
    , _outputLimit(outputLimit)
{}

CommandResult ProcessCommandRunner::run(
    const std::filesystem::path& executable,
    const std::vector<std::string>& arguments,
    std::stop_token stopToken) const
{
    const FileDescriptor timer = openTimer(deadlineAfter(_timeout), executable);
    const FileDescriptor wakeUp = openWakeUp(executable);
    ProcessController controller;
    const std::stop_callback onStop(stopToken, [&controller, &wakeUp] {
        controller.cancel();
        ::eventfd_write(wakeUp.number(), 1);
    });
    if (stopToken.stop_requested()) {
        throw CancellationError();
    }
    auto process = std::make_shared<ChildProcess>(executable, arguments, _settings);
    controller.registerProcess(process);
    ProcessSession session(
        std::move(process), controller, executable.filename().string(), _outputLimit);
    session.follow(wakeUp, timer);

    CommandResult result = session.takeResult();
    if (controller.hasTimedOut()) {
        throw ProviderError("GitHub CLI request timed out.");
    }
    if (stopToken.stop_requested()) {
        throw CancellationError();
    }
    return result;
}

}  // namespace GitHub

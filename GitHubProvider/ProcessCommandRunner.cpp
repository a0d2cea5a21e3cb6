#include "GitHubProvider/ProcessCommandRunner.h"

#include "GitHubProvider/ChildProcess.h"
#include "GitHubProvider/PipeReader.h"
#include "PullRequestKit/Errors.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <exception>
#include <memory>
#include <optional>
#include <span>
#include <system_error>
#include <utility>

#include <poll.h>
#include <sys/eventfd.h>

namespace GitHubProvider {
namespace {

using PullRequestKit::CancellationError;
using PullRequestKit::ProviderError;
using Clock = std::chrono::steady_clock;

Clock::time_point deadlineAfter(std::chrono::nanoseconds timeout)
{
    const Clock::time_point now = Clock::now();
    return timeout < Clock::time_point::max() - now ? now + timeout : Clock::time_point::max();
}

/// Becomes readable when the call is stopped, which ends the wait for everything else.
FileDescriptor openWakeUp(const std::filesystem::path& executable)
{
    FileDescriptor wakeUp(::eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK));
    if (!wakeUp.isOpen()) {
        throw launchError(errno, executable);
    }
    return wakeUp;
}

/// Waits for one of `polled`, until `deadline` if there is one. Without events when a signal came.
void waitForEvents(std::span<pollfd> polled, std::optional<Clock::time_point> deadline)
{
    timespec limit{};
    if (deadline) {
        const auto left = std::max(*deadline - Clock::now(), Clock::duration::zero());
        const auto seconds = std::chrono::floor<std::chrono::seconds>(left);
        limit = {seconds.count(), std::chrono::nanoseconds(left - seconds).count()};
    }
    if (::ppoll(polled.data(), polled.size(), deadline ? &limit : nullptr, nullptr) >= 0) {
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

/// A launched program, followed to its end. It is given up when it is stopped, out of time, prints
/// too much or cannot be read; whatever comes first counts. From then on its output is read only
/// so that a child that still prints can come to its end, and nobody but the child is waited for.
class Conversation {
public:
    Conversation(
        std::shared_ptr<ChildProcess> process,
        ProcessController& controller,
        const std::string& programName,
        std::size_t outputLimit)
        : _process(std::move(process))
        , _controller(controller)
        , _output(_process->takeStandardOutput(), programName, outputLimit)
        , _error(_process->takeStandardError(), programName, outputLimit)
    {}

    void follow(const FileDescriptor& wakeUp, Clock::time_point deadline)
    {
        while (!isOver()) {
            std::array<pollfd, 4> polled{{
                {_isGivenUp ? -1 : wakeUp.number(), POLLIN, 0},
                {_hasChildEnded ? -1 : _process->descriptor(), POLLIN, 0},
                {_output.descriptor(), POLLIN, 0},
                {_error.descriptor(), POLLIN, 0},
            }};
            waitForEvents(polled, _isGivenUp ? std::nullopt : std::optional(deadline));
            if (polled[0].revents != 0) {
                giveUp();
            }
            if (polled[1].revents != 0) {
                _status = _process->wait();
                _hasChildEnded = true;
            }
            read(_output, polled[2]);
            read(_error, polled[3]);
            if (!isOver() && !_isGivenUp && Clock::now() >= deadline) {
                _controller.timeOut();
                giveUp();
            }
        }
    }

    /// Throws where the command was given up because a pipe brought too much or failed. Without
    /// output where it was given up for another reason.
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
    : _timeout(timeout)
    , _outputLimit(outputLimit)
{}

CommandResult ProcessCommandRunner::run(
    const std::filesystem::path& executable,
    const std::vector<std::string>& arguments,
    std::stop_token stopToken) const
{
    const Clock::time_point deadline = deadlineAfter(_timeout);
    const FileDescriptor wakeUp = openWakeUp(executable);
    ProcessController controller;
    const std::stop_callback onStop(stopToken, [&controller, &wakeUp] {
        controller.cancel();
        ::eventfd_write(wakeUp.number(), 1);
    });
    if (stopToken.stop_requested()) {
        throw CancellationError();
    }
    auto process = std::make_shared<ChildProcess>(executable, arguments);
    controller.registerProcess(process);
    Conversation conversation(
        std::move(process), controller, executable.filename().string(), _outputLimit);
    conversation.follow(wakeUp, deadline);

    CommandResult result = conversation.takeResult();
    if (controller.hasTimedOut()) {
        throw ProviderError("GitHub CLI request timed out.");
    }
    if (stopToken.stop_requested()) {
        throw CancellationError();
    }
    return result;
}

}  // namespace GitHubProvider

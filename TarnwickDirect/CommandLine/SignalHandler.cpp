#include "TarnwickDirect/CommandLine/SignalHandler.h"

#include <atomic>
#include <cassert>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <system_error>

#include <fcntl.h>
#include <unistd.h>

namespace TarnwickDirect {
namespace {

/// A closed terminal sends SIGHUP to this program but not to its children, which have sessions of
/// their own.
constexpr int endingSignals[] = {SIGHUP, SIGINT, SIGTERM};

/// Set for the handler, which may use nothing else.
std::atomic<int> pipeEnd = -1;
static_assert(std::atomic<int>::is_always_lock_free);

void handle(int number)
{
    const int savedError = errno;
    const auto byte = static_cast<unsigned char>(number);
    // A full pipe already holds enough notifications.
    [[maybe_unused]] const auto written = ::write(pipeEnd, &byte, 1);
    errno = savedError;
}

/// Keeps SIGHUP ignored, as set by `nohup`.
bool isKept(int number)
{
    struct sigaction current{};
    ::sigaction(number, nullptr, &current);
    return number == SIGHUP && current.sa_handler == SIG_IGN;
}

/// Also unblocks the signals, which the parent may have blocked.
void setHandlers(void (*handler)(int))
{
    struct sigaction action{};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    ::sigemptyset(&action.sa_mask);
    sigset_t signals{};
    ::sigemptyset(&signals);
    for (const int number : endingSignals) {
        if (isKept(number)) {
            continue;
        }
        ::sigaction(number, &action, nullptr);
        ::sigaddset(&signals, number);
    }
    ::pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
}

}  // namespace

SignalHandler::SignalHandler()
{
    // If SIGCHLD is ignored, exit statuses of children are lost.
    std::signal(SIGCHLD, SIG_DFL);
    int ends[2] = {-1, -1};
    if (::pipe2(ends, O_CLOEXEC | O_NONBLOCK) != 0) {
        throw std::system_error(errno, std::generic_category(), "Could not set up signal handling");
    }
    _descriptor = ends[0];
    pipeEnd = ends[1];
    setHandlers(handle);
    _notifier = std::make_unique<QSocketNotifier>(_descriptor, QSocketNotifier::Read);
    connect(_notifier.get(), &QSocketNotifier::activated, this, &SignalHandler::read);
}

SignalHandler::~SignalHandler()
{
    setHandlers(SIG_DFL);
    _notifier.reset();
    ::close(pipeEnd.exchange(-1));
    ::close(_descriptor);
}

void SignalHandler::read()
{
    unsigned char byte = 0;
    while (::read(_descriptor, &byte, 1) == 1) {
        if (_signal) {
            // With a second signal the user does not want to wait for slow children.
            endProcess();
        }
        _signal = byte;
        Q_EMIT interrupted();
    }
}

void SignalHandler::endProcess() const
{
    assert(_signal);
    setHandlers(SIG_DFL);
    std::raise(*_signal);
    std::_Exit(128 + *_signal);
}

}  // namespace TarnwickDirect

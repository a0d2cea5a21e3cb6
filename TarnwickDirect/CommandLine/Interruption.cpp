#include "TarnwickDirect/CommandLine/Interruption.h"

#include <cassert>
#include <csignal>
#include <cstdlib>
#include <system_error>

#include <sys/signalfd.h>
#include <unistd.h>

namespace TarnwickDirect {
namespace {

sigset_t endingSignals()
{
    sigset_t signals{};
    ::sigemptyset(&signals);
    ::sigaddset(&signals, SIGINT);
    ::sigaddset(&signals, SIGTERM);
    return signals;
}

}  // namespace

Interruption::Interruption()
{
    // Where a parent had it ignored, ended children would vanish together with their statuses.
    std::signal(SIGCHLD, SIG_DFL);
    const sigset_t signals = endingSignals();
    ::pthread_sigmask(SIG_BLOCK, &signals, nullptr);
    _descriptor = ::signalfd(-1, &signals, SFD_CLOEXEC | SFD_NONBLOCK);
    if (_descriptor < 0) {
        throw std::system_error(errno, std::generic_category(), "Signals cannot be received");
    }
    _notifier = std::make_unique<QSocketNotifier>(_descriptor, QSocketNotifier::Read);
    connect(_notifier.get(), &QSocketNotifier::activated, this, &Interruption::read);
}

Interruption::~Interruption()
{
    _notifier.reset();
    ::close(_descriptor);
}

void Interruption::read()
{
    signalfd_siginfo info{};
    if (::read(_descriptor, &info, sizeof info) != sizeof info) {
        return;
    }
    if (_signal) {
        // Whoever asks a second time does not want to wait for a child that takes its time.
        endProcess();
    }
    _signal = static_cast<int>(info.ssi_signo);
    Q_EMIT interrupted();
}

void Interruption::endProcess() const
{
    assert(_signal);
    const sigset_t signals = endingSignals();
    std::signal(*_signal, SIG_DFL);
    ::pthread_sigmask(SIG_UNBLOCK, &signals, nullptr);
    std::raise(*_signal);
    std::_Exit(128 + *_signal);
}

}  // namespace TarnwickDirect

#include "SampleGitHub/Signals.h"

#include <cerrno>

namespace SampleGitHub {

Signals::Signals(std::initializer_list<int> signals)
{
    sigemptyset(&_signals);
    for (const int signal : signals) {
        sigaddset(&_signals, signal);
    }
    pthread_sigmask(SIG_BLOCK, &_signals, &_before);
}

Signals::~Signals()
{
    pthread_sigmask(SIG_SETMASK, &_before, nullptr);
}

int Signals::wait() const
{
    int signal = -1;
    while (signal < 0) {
        signal = sigwaitinfo(&_signals, nullptr);
        if (signal < 0 && errno != EINTR) {
            return SIGTERM;
        }
    }
    return signal;
}

}  // namespace SampleGitHub

#pragma once

#include <csignal>
#include <initializer_list>

namespace SampleGitHub {

/// Blocks signals for this thread and those it starts, so that they are taken by `wait()`. Make one
/// before any other thread; the signals are as before when it goes.
class Signals {
public:
    Signals(std::initializer_list<int> signals);
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;
    ~Signals();

    /// Blocks until one of the signals comes, and tells its number.
    int wait() const;

    /// What was blocked before, for children to inherit.
    const sigset_t& before() const { return _before; }

private:
    sigset_t _signals{};
    sigset_t _before{};
};

}  // namespace SampleGitHub

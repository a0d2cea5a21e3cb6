#pragma once

#include <csignal>
#include <initializer_list>

namespace SampleGitHub {

/// Blocks signals in this thread and those started later, for `wait()`. Create before any other
/// thread. The destructor restores the previous signals.
class Signals {
public:
    Signals(std::initializer_list<int> signals);
    Signals(const Signals&) = delete;
    Signals& operator=(const Signals&) = delete;
    ~Signals();

    /// Blocks until one of the signals arrives and returns its number.
    int wait() const;

    /// The signals blocked before, for children to inherit.
    const sigset_t& before() const { return _before; }

private:
    sigset_t _signals{};
    sigset_t _before{};
};

}  // namespace SampleGitHub

#pragma once

#include <chrono>

#include <time.h>

namespace Benchmarks {

using Seconds = std::chrono::duration<double>;

/// What one of the system's clocks shows.
inline Seconds timeOn(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return Seconds(static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec));
}

/// The processor's time that `action` takes of the calling thread, to which other programs do not
/// add.
template<typename Action>
Seconds timeOf(Action action)
{
    const Seconds start = timeOn(CLOCK_THREAD_CPUTIME_ID);
    action();
    return timeOn(CLOCK_THREAD_CPUTIME_ID) - start;
}

}  // namespace Benchmarks

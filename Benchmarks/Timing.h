#pragma once

#include <chrono>

#include <time.h>

namespace Benchmarks {

using Seconds = std::chrono::duration<double>;

inline Seconds timeOn(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return Seconds(static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec));
}

/// The calling thread's processor time for `action`, which other programs do not add to.
template<typename Action>
Seconds timeOf(Action action)
{
    const Seconds start = timeOn(CLOCK_THREAD_CPUTIME_ID);
    action();
    return timeOn(CLOCK_THREAD_CPUTIME_ID) - start;
}

}  // namespace Benchmarks

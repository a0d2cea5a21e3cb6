#pragma once

#include <chrono>

#include <time.h>

namespace Benchmarks {

using Seconds = std::chrono::duration<double>;

/// The processor's time that `action` takes of the calling thread, to which other programs do not
/// add.
template<typename Action>
Seconds timeOf(Action action)
{
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return Seconds(static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec));
    };
    const Seconds start = now();
    action();
    return now() - start;
}

}  // namespace Benchmarks

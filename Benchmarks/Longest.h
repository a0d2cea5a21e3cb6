#pragma once

#include "Benchmarks/Timing.h"

#include <algorithm>

#include <benchmark/benchmark.h>

namespace Benchmarks {

/// Reports the longest time of a run beside the time available for a frame.
class Longest {
public:
    explicit Longest(benchmark::State& state)
        : _state(state)
    {}

    void add(Seconds time)
    {
        _longest = std::max(_longest, time);
        _state.SetIterationTime(time.count());
    }

    void report() const
    {
        constexpr double aimMilliseconds = 16;
        _state.counters["longestMilliseconds"] = 1e3 * _longest.count();
        _state.counters["aimMilliseconds"] = aimMilliseconds;
    }

private:
    benchmark::State& _state;
    Seconds _longest{};
};

}  // namespace Benchmarks

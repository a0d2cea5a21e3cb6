#pragma once

#include "Benchmarks/Timing.h"

#include <algorithm>

#include <benchmark/benchmark.h>

namespace Benchmarks {

/// Keeps the longest of the times of one run and says so, beside the time that a frame may take.
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

#include "Benchmarks/Input.h"
#include "Benchmarks/Timing.h"
#include "PullRequestKit/PullRequestOrdering.h"
#include "PullRequestKit/StackBuilder.h"

#include <algorithm>
#include <utility>

#include <benchmark/benchmark.h>

namespace {

using namespace PullRequestKit;
using Benchmarks::Seconds;
using Benchmarks::timeOf;

/// The time to build the rows of a list, as a multiple of the time to sort it. Alternates the two,
/// so that disturbances affect both. The minimum is from the least disturbed iteration.
void rowsBesideSorting(benchmark::State& state)
{
    const auto input = Benchmarks::makePullRequests(static_cast<std::size_t>(state.range(0)));
    Seconds rowsTime{};
    Seconds sortTime{};
    Seconds least = Seconds::max();
    for ([[maybe_unused]] auto iteration : state) {
        auto toSort = input;
        sortTime +=
            timeOf([&] { std::ranges::sort(toSort, PullRequestOrdering::areInIncreasingOrder); });
        benchmark::DoNotOptimize(toSort.data());

        auto toStack = input;
        std::vector<PullRequestRow> rows;
        const Seconds time = timeOf([&] { rows = StackBuilder::rows(std::move(toStack)); });
        benchmark::DoNotOptimize(rows.data());
        rowsTime += time;
        least = std::min(least, time);
        state.SetIterationTime(time.count());
    }
    state.counters["leastMilliseconds"] = 1e3 * least.count();
    state.counters["timesSorting"] = rowsTime / sortTime;
    state.counters["aim"] = 4;
}

BENCHMARK(rowsBesideSorting)
    ->Arg(1'000)
    ->Arg(100'000)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace

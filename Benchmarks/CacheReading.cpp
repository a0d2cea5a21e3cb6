#include "Benchmarks/Input.h"
#include "Benchmarks/Timing.h"
#include "PullRequestKit/StackBuilder.h"
#include "Tarnwick/Persistence/PullRequestDiskCache.h"

#include <filesystem>

#include <benchmark/benchmark.h>
#include <unistd.h>

namespace {

using namespace PullRequestKit;
using Benchmarks::Seconds;

Tarnwick::CachedPullRequestSnapshot makeSnapshot()
{
    Tarnwick::CachedPullRequestSnapshot snapshot;
    snapshot.pullRequests = Benchmarks::makePullRequests(1'000);
    for (const PullRequest& pullRequest : snapshot.pullRequests) {
        snapshot.repositories.push_back(
            {pullRequest.id.repository, "private", "C++", "main", false});
    }
    snapshot.account = "mona";
    snapshot.refreshedAt = snapshot.pullRequests.front().updatedAt;
    return snapshot;
}

/// From the cache file of 1,000 pull requests and repositories to rows, as at the program's start.
void rowsFromTheCache(benchmark::State& state)
{
    const auto folder =
        std::filesystem::temp_directory_path() / ("tarnwick-benchmark-" + std::to_string(getpid()));
    const Tarnwick::PullRequestDiskCache cache{folder / "pull-requests.json"};
    cache.save(makeSnapshot());
    for ([[maybe_unused]] auto iteration : state) {
        std::vector<PullRequestRow> rows;
        const Seconds time = Benchmarks::timeOf([&] {
            if (auto snapshot = cache.load()) {
                rows = StackBuilder::rows(std::move(snapshot->pullRequests));
            }
        });
        if (rows.size() != 1'000) {
            state.SkipWithError("the cache did not yield its rows");
            break;
        }
        state.SetIterationTime(time.count());
    }
    state.counters["fileBytes"] = static_cast<double>(std::filesystem::file_size(cache.fileURL));
    state.counters["aimMilliseconds"] = 15;
    std::filesystem::remove_all(folder);
}

BENCHMARK(rowsFromTheCache)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

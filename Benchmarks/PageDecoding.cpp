// The cost of decoding a search page into records, beside Boost.JSON's bare parse of the same text.

#include "Benchmarks/SearchPages.h"
#include "GitHubProvider/PullRequestMapping.h"
#include "GitHubProvider/SearchRecords.h"
#include "PullRequestKit/Json/Reading.h"

#include <algorithm>
#include <boost/json.hpp>
#include <cstdint>
#include <ctime>
#include <string>
#include <utility>
#include <vector>

#include <benchmark/benchmark.h>

namespace {

using GitHub::SearchEnvelope;

void parseBare(const std::string& text)
{
    boost::json::monotonic_resource memory;
    benchmark::DoNotOptimize(boost::json::parse(text, &memory));
}

void decodePage(const std::string& text)
{
    benchmark::DoNotOptimize(PullRequestKit::Json::decode<SearchEnvelope>(text));
}

void bareParse(benchmark::State& state)
{
    const std::string text = Benchmarks::searchPage();
    for ([[maybe_unused]] auto iteration : state) {
        parseBare(text);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void pageDecoding(benchmark::State& state)
{
    const std::string text = Benchmarks::searchPage();
    for ([[maybe_unused]] auto iteration : state) {
        decodePage(text);
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

void pageDecodingAndMapping(benchmark::State& state)
{
    const std::string text = Benchmarks::searchPage();
    for ([[maybe_unused]] auto iteration : state) {
        auto envelope = PullRequestKit::Json::decode<SearchEnvelope>(text);
        if (!envelope.data) {
            state.SkipWithError("The page has no data.");
            break;
        }
        PullRequestKit::SharedTexts texts;
        for (GitHub::Node& node : envelope.data->search.nodes) {
            benchmark::DoNotOptimize(
                GitHub::mapPullRequest(std::move(node), "github.com", std::nullopt, texts));
        }
    }
    state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(text.size()));
}

/// Processor time, which other programs do not add to.
double processorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) / 1e9;
}

template<typename Work>
double secondsOf(Work work)
{
    const double start = processorSeconds();
    work();
    return processorSeconds() - start;
}

double median(std::vector<double> values)
{
    std::ranges::sort(values);
    return values[values.size() / 2];
}

/// Alternates the two, so that disturbances affect both. The aim is a ratio of at most 1.6.
void pageDecodingOverBareParse(benchmark::State& state)
{
    const std::string text = Benchmarks::searchPage();
    std::vector<double> bare;
    std::vector<double> decoding;
    for ([[maybe_unused]] auto iteration : state) {
        bare.push_back(secondsOf([&] { parseBare(text); }));
        decoding.push_back(secondsOf([&] { decodePage(text); }));
    }
    state.counters["page_bytes"] = static_cast<double>(text.size());
    state.counters["floor_ms"] = median(bare) * 1e3;
    state.counters["figure_ms"] = median(decoding) * 1e3;
    state.counters["ratio"] = median(decoding) / median(bare);
}

}  // namespace

BENCHMARK(bareParse)->Unit(benchmark::kMillisecond);
BENCHMARK(pageDecoding)->Unit(benchmark::kMillisecond);
BENCHMARK(pageDecodingAndMapping)->Unit(benchmark::kMillisecond);
BENCHMARK(pageDecodingOverBareParse)->Unit(benchmark::kMillisecond)->MinTime(2);

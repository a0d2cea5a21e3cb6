#include "Benchmarks/Input.h"
#include "Benchmarks/Timing.h"
#include "PullRequestKit/StackBuilder.h"
#include "PullRequestKit/TurnRules.h"
#include "Tarnwick/Model/Arrangement.h"

#include <algorithm>
#include <string>
#include <utility>

#include <benchmark/benchmark.h>

namespace {

using namespace PullRequestKit;
using namespace Tarnwick;
using Benchmarks::Seconds;
using Benchmarks::timeOf;

constexpr std::size_t rowCount = 1'000;

/// A list that exercises every rule; a third of the pull requests are the user's own.
struct List {
    std::vector<PullRequest> listed = Benchmarks::makePullRequests(rowCount);
    DetailsByID details;
    FactsByID facts;
    std::string login = "ada";

    List()
    {
        for (std::size_t place = 0; place < listed.size(); ++place) {
            PullRequest& pullRequest = listed[place];
            pullRequest.author = place % 3 == 0 ? "Ada" : "bo-the-builder";
            describe(details[pullRequest.id], place);
            PullRequestFacts& known = facts[pullRequest.id];
            known.updatedAt = pullRequest.updatedAt;
            known.headCommit = std::string(40, static_cast<char>('a' + place % 6));
            known.threadCount = static_cast<std::int64_t>(place % 7);
            known.openThreadCount = static_cast<std::int64_t>(place % 7 == 6);
        }
    }

    TurnSources sources() const { return {listed, details, facts, login}; }

private:
    static void describe(PullRequestDetails& known, std::size_t place)
    {
        if (place % 4 == 1) {
            known.requestedUsers = {"mara-the-reviewer", "noa-b"};
        }
        if (place % 4 == 2) {
            known.requestedUsers = {"mara-the-reviewer", "ada"};
            known.reviews = {{"ada", ReviewVerdict::commented}};
        }
        known.requestedTeams =
            place % 5 == 0 ? std::vector<std::string>{"platform"} : std::vector<std::string>();
        known.asksForUser = place % 2 == 0;
        known.reviews.push_back({"noa-b", static_cast<ReviewVerdict>(place % 5)});
        known.failedChecks = {"build", "test (linux)"};
    }
};

/// Reports the mean and the minimum of a run beside the aim.
class Figures {
public:
    explicit Figures(benchmark::State& state)
        : _state(state)
    {}

    void add(Seconds time)
    {
        _least = std::min(_least, time);
        _state.SetIterationTime(time.count());
    }

    void report(double aimMilliseconds) const
    {
        _state.counters["leastMilliseconds"] = 1e3 * _least.count();
        _state.counters["aimMilliseconds"] = aimMilliseconds;
    }

private:
    benchmark::State& _state;
    Seconds _least = Seconds::max();
};

/// The rules alone, with all data in memory.
void turnOfEach(benchmark::State& state)
{
    const List list;
    std::vector<std::pair<const PullRequestDetails*, const PullRequestFacts*>> known;
    known.reserve(list.listed.size());
    for (const PullRequest& pullRequest : list.listed) {
        known.emplace_back(&list.details.at(pullRequest.id), &list.facts.at(pullRequest.id));
    }
    std::vector<Turn> turns(list.listed.size());
    Figures figures(state);
    for ([[maybe_unused]] auto iteration : state) {
        figures.add(timeOf([&] {
            for (std::size_t place = 0; place < turns.size(); ++place) {
                const auto [details, facts] = known[place];
                turns[place] = turnOf(list.listed[place], details, facts, list.login);
            }
        }));
        benchmark::DoNotOptimize(turns.data());
    }
    constexpr double aim = 0.3;
    figures.report(aim);
}

/// From rows by review state to rows, turns and groups.
void arrangingByTurn(benchmark::State& state)
{
    const List list;
    const auto rows = StackBuilder::rows(list.listed);
    Figures figures(state);
    for ([[maybe_unused]] auto iteration : state) {
        auto toArrange = rows;
        ArrangedRows arranged;
        figures.add(
            timeOf([&] { arranged = arrangedByTurn(std::move(toArrange), list.sources()); }));
        benchmark::DoNotOptimize(arranged.rows.data());
        state.counters["groups"] = static_cast<double>(arranged.groups.size());
    }
    constexpr double aim = 0.5;
    figures.report(aim);
}

BENCHMARK(turnOfEach)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(arrangingByTurn)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

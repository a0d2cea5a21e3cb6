#include "Benchmarks/Input.h"
#include "Benchmarks/Longest.h"
#include "Benchmarks/Timing.h"
#include "PullRequestKit/StackBuilder.h"
#include "Tarnwick/Interface/List/PullRequestListView.h"

#include <QImage>
#include <QScrollBar>

#include <algorithm>
#include <functional>

#include <benchmark/benchmark.h>

namespace {

using namespace PullRequestKit;
using namespace Tarnwick;
using Benchmarks::Longest;
using Benchmarks::timeOf;

constexpr int rowCount = 1'000;

std::vector<ListedRow> listed(std::vector<PullRequest> pullRequests)
{
    std::vector<ListedRow> rows;
    for (PullRequestRow& row : StackBuilder::rows(std::move(pullRequests))) {
        const bool isVisited = row.pullRequest.id.number % 3 == 0;
        rows.push_back({std::make_shared<const PullRequestRow>(std::move(row)), isVisited});
    }
    return rows;
}

/// Puts each row under the heading that `heading` returns for its number; this splits stacks.
std::vector<ListedRow> byTurn(
    std::vector<ListedRow> rows, const std::function<Whose(std::int64_t number)>& heading)
{
    for (ListedRow& row : rows) {
        const Whose whose = heading(row.row->id().number);
        row.heading = whose;
        row.turn = std::make_shared<const Turn>(
            Turn{whose, TurnReason::waitingFor, {"mara", "noa-b", "platform"}, 0});
    }
    std::ranges::stable_sort(rows, {}, &ListedRow::heading);
    return rows;
}

/// The list as in the panel, painted to an image.
class ShownList {
public:
    explicit ShownList(std::vector<ListedRow> rows)
    {
        _model.setRows(std::move(rows));
        _view.resize(440, 544);
        _view.setAttribute(Qt::WA_DontShowOnScreen);
        _view.show();
        paint();
    }

    void paint() { _view.render(&_screen); }

    const QImage& screen() const { return _screen; }

    PullRequestListModel& model() { return _model; }

    QScrollBar& scrollBar() { return *_view.verticalScrollBar(); }

private:
    PullRequestListModel _model{[] { return Date{std::chrono::seconds{1'714'600'000}}; }};
    PullRequestListView _view{_model};
    QImage _screen{440, 544, QImage::Format_ARGB32_Premultiplied};
};

/// From the first page to the last, repeatedly. The first round lays out all titles.
void scrollingAPage(benchmark::State& state)
{
    ShownList list(listed(Benchmarks::makePullRequests(rowCount)));
    Longest longest(state);
    for ([[maybe_unused]] auto iteration : state) {
        const QImage before = list.screen().copy();
        longest.add(timeOf([&] {
            QScrollBar& bar = list.scrollBar();
            bar.setValue(bar.value() == bar.maximum() ? 0 : bar.value() + bar.pageStep());
            list.paint();
        }));
        if (list.screen() == before) {
            state.SkipWithError("a page looks like the one before it");
            break;
        }
    }
    longest.report();
}

BENCHMARK(scrollingAPage)->Iterations(300)->UseManualTime()->Unit(benchmark::kMillisecond);

/// Types letter by letter, then clears the search.
void aKeystrokeOfFinding(benchmark::State& state)
{
    ShownList list(listed(Benchmarks::makePullRequests(rowCount)));
    Longest longest(state);
    const QString typed = QStringLiteral("retry part 12");
    qsizetype length = 0;
    for ([[maybe_unused]] auto iteration : state) {
        length = length == typed.size() ? 0 : length + 1;
        longest.add(timeOf([&] {
            list.model().setFindText(typed.left(length));
            list.paint();
        }));
    }
    longest.report();
}

BENCHMARK(aKeystrokeOfFinding)->Iterations(140)->UseManualTime()->Unit(benchmark::kMillisecond);

/// A refresh that changes and moves a tenth of the rows, and removes and adds a few.
void aRefreshResult(benchmark::State& state)
{
    std::vector<PullRequest> before = Benchmarks::makePullRequests(rowCount);
    std::vector<PullRequest> after = before;
    for (std::size_t place = 0; place < after.size(); place += 10) {
        after[place].updatedAt += std::chrono::hours(2);
        after[place].checks = {3, 7, 0};
    }
    before.resize(before.size() - 20);
    after.erase(after.begin(), after.begin() + 20);
    const std::vector<ListedRow> lists[] = {listed(before), listed(after)};
    ShownList list(lists[0]);
    list.scrollBar().setValue(list.scrollBar().maximum() / 2);
    Longest longest(state);
    std::size_t next = 1;
    for ([[maybe_unused]] auto iteration : state) {
        std::vector<ListedRow> rows = lists[next];
        next = 1 - next;
        longest.add(timeOf([&] {
            list.model().setRows(std::move(rows));
            list.paint();
        }));
    }
    longest.report();
}

BENCHMARK(aRefreshResult)->Iterations(60)->UseManualTime()->Unit(benchmark::kMillisecond);

/// The same under headings, with a tenth of the rows moving to another heading.
void aRefreshResultByTurn(benchmark::State& state)
{
    std::vector<PullRequest> before = Benchmarks::makePullRequests(rowCount);
    std::vector<PullRequest> after = before;
    for (std::size_t place = 0; place < after.size(); place += 10) {
        after[place].updatedAt += std::chrono::hours(2);
        after[place].checks = {3, 7, 0};
    }
    before.resize(before.size() - 20);
    after.erase(after.begin(), after.begin() + 20);
    const auto headingBefore = [](std::int64_t number) { return static_cast<Whose>(number % 4); };
    const auto headingAfter = [](std::int64_t number) {
        return static_cast<Whose>((number + (number / 4 % 10 == 0 ? 1 : 0)) % 4);
    };
    const std::vector<ListedRow> lists[] = {
        byTurn(listed(before), headingBefore), byTurn(listed(after), headingAfter)};
    ShownList list(lists[0]);
    list.scrollBar().setValue(list.scrollBar().maximum() / 2);
    Longest longest(state);
    std::size_t next = 1;
    for ([[maybe_unused]] auto iteration : state) {
        std::vector<ListedRow> rows = lists[next];
        next = 1 - next;
        longest.add(timeOf([&] {
            list.model().setRows(std::move(rows));
            list.paint();
        }));
        if (list.model().headingRows().size() != 4) {
            state.SkipWithError("the rows do not stand under four headings");
            break;
        }
    }
    longest.report();
}

BENCHMARK(aRefreshResultByTurn)->Iterations(60)->UseManualTime()->Unit(benchmark::kMillisecond);

/// From the model's rows to the first frame of the list.
void theFirstFrame(benchmark::State& state)
{
    const std::vector<ListedRow> rows =
        listed(Benchmarks::makePullRequests(static_cast<std::size_t>(state.range(0))));
    Longest longest(state);
    for ([[maybe_unused]] auto iteration : state) {
        std::vector<ListedRow> given = rows;
        std::optional<ShownList> list;
        longest.add(timeOf([&] { list.emplace(std::move(given)); }));
    }
    longest.report();
}

BENCHMARK(theFirstFrame)
    ->Arg(0)
    ->Arg(rowCount)
    ->Iterations(20)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace

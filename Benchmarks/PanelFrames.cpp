#include "Benchmarks/Longest.h"
#include "Benchmarks/PanelInput.h"
#include "Tarnwick/Interface/Picker/RepositoryPicker.h"
#include "Tarnwick/PullRequestMenuView.h"

#include <QAbstractScrollArea>
#include <QEvent>
#include <QImage>
#include <QLineEdit>
#include <QScrollBar>

#include <benchmark/benchmark.h>

namespace {

using namespace Tarnwick;
using Benchmarks::listBeforeAndAfter;
using Benchmarks::Longest;
using Benchmarks::makeRepositories;
using Benchmarks::ModelOnProvider;
using Benchmarks::timeOf;
using Benchmarks::timeOn;
using Benchmarks::TurningProvider;

constexpr QSize panelSize(440, 620);
constexpr int repositoryCount = 3'000;

/// A widget of the panel's size, painted to an image.
template<typename Shown>
class OnScreen {
public:
    OnScreen()
        : _provider(std::make_shared<TurningProvider>(
              listBeforeAndAfter(), makeRepositories(repositoryCount)))
        , _model(_provider)
        , _shown(_model.model())
    {
        _shown.setAttribute(Qt::WA_DontShowOnScreen);
        _shown.resize(panelSize);
        _shown.show();
        QCoreApplication::processEvents();
        paint();
    }

    void paint() { _shown.render(&_screen); }

    /// Whether the image differs from the last call.
    bool hasChanged() { return std::exchange(_seen, _screen.copy()) != _screen; }

    ModelOnProvider& model() { return _model; }

    const TurningProvider& provider() const { return *_provider; }

    template<typename Part>
    Part& part(const char* name)
    {
        auto* const found = _shown.template findChild<Part*>(QString::fromLatin1(name));
        Q_ASSERT(found != nullptr);
        return *found;
    }

private:
    std::shared_ptr<TurningProvider> _provider;
    ModelOnProvider _model;
    Shown _shown;
    QImage _screen{panelSize, QImage::Format_ARGB32_Premultiplied};
    QImage _seen;
};

class Paintings final : public QObject {
public:
    explicit Paintings(QWidget& widget) { widget.installEventFilter(this); }

    int count() const { return _count; }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        _count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

private:
    int _count = 0;
};

/// The main thread's time for the answer to a refresh, from its arrival to the new frame.
void aRefreshResultInThePanel(benchmark::State& state, Arrangement arrangement)
{
    OnScreen<PullRequestMenuView> panel;
    panel.model().model().setArrangement(arrangement);
    const Paintings paintings(*panel.part<QAbstractScrollArea>("pullRequestList").viewport());
    Longest longest(state);
    for ([[maybe_unused]] auto iteration : state) {
        const int before = paintings.count();
        panel.model().refresh();
        QCoreApplication::processEvents();
        longest.add(timeOn(CLOCK_THREAD_CPUTIME_ID) - panel.provider().mainThreadAtAnswer());
        const bool isPainted = paintings.count() > before;
        panel.paint();
        if (!isPainted || !panel.hasChanged()) {
            state.SkipWithError("the refresh changed nothing");
            break;
        }
    }
    state.counters["rows"] = static_cast<double>(panel.model().model().rows().size());
    state.counters["headings"] =
        static_cast<double>(panel.model().model().list().arranged()->groups.size());
    longest.report();
}

BENCHMARK_CAPTURE(aRefreshResultInThePanel, byReviewState, Arrangement::byReviewState)
    ->Iterations(40)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(aRefreshResultInThePanel, byWhoseTurn, Arrangement::byWhoseTurn)
    ->Iterations(40)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

void scrollingThePicker(benchmark::State& state)
{
    OnScreen<RepositoryPicker> picker;
    QScrollBar& bar = *picker.part<QAbstractScrollArea>("repositories").verticalScrollBar();
    Longest longest(state);
    for ([[maybe_unused]] auto iteration : state) {
        longest.add(timeOf([&] {
            bar.setValue(bar.value() == bar.maximum() ? 0 : bar.value() + bar.pageStep());
            picker.paint();
        }));
        if (!picker.hasChanged()) {
            state.SkipWithError("a page looks like the one before it");
            break;
        }
    }
    longest.report();
}

BENCHMARK(scrollingThePicker)->Iterations(300)->UseManualTime()->Unit(benchmark::kMillisecond);

/// Types letter by letter, then clears the search.
void aKeystrokeInThePicker(benchmark::State& state)
{
    OnScreen<RepositoryPicker> picker;
    auto& field = picker.part<QLineEdit>("findRepository");
    const QString typed = QStringLiteral("service-12");
    qsizetype length = 0;
    Longest longest(state);
    for ([[maybe_unused]] auto iteration : state) {
        length = length == typed.size() ? 0 : length + 1;
        longest.add(timeOf([&] {
            field.setText(typed.left(length));
            picker.paint();
        }));
        if (!picker.hasChanged()) {
            state.SkipWithError("the letter changed nothing");
            break;
        }
    }
    longest.report();
}

BENCHMARK(aKeystrokeInThePicker)->Iterations(110)->UseManualTime()->Unit(benchmark::kMillisecond);

}  // namespace

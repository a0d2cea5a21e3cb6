#include "Tarnwick/Async/RunUntilDone.h"

#include "Tarnwick/Async/Worker.h"

#include <QCoreApplication>
#include <QCoro/QCoroFuture>
#include <QTimer>

#include <stdexcept>

#include <gmock/gmock.h>

namespace {

using PullRequestKit::CancellationError;
using Tarnwick::onWorker;
using Tarnwick::runUntilDone;

QCoro::Task<int> seven()
{
    co_return 7;
}

QCoro::Task<int> sevenAfter(QFuture<void> future)
{
    co_await future;
    co_return 7;
}

QCoro::Task<> fail()
{
    throw std::runtime_error("no luck");
    co_return;
}

TEST(RunUntilDone, returnsFromATaskThatHasEndedAlready)
{
    EXPECT_EQ(runUntilDone(seven()), 7);
}

TEST(RunUntilDone, runsTheEventLoopForATaskThatWaits)
{
    QPromise<void> promise;
    promise.start();
    QTimer::singleShot(0, qApp, [&] { promise.finish(); });
    EXPECT_EQ(runUntilDone(sevenAfter(promise.future())), 7);
}

TEST(RunUntilDone, throwsWhatTheTaskThrows)
{
    EXPECT_THAT(
        [] { runUntilDone(fail()); }, testing::ThrowsMessage<std::runtime_error>("no luck"));
    auto failing = onWorker([]() -> int { throw std::runtime_error("no luck there"); });
    EXPECT_THAT(
        [&] { runUntilDone(std::move(failing)); },
        testing::ThrowsMessage<std::runtime_error>("no luck there"));
}

TEST(RunUntilDone, takesTheResultOfAWorkerWheneverItIsDone)
{
    for (int round = 0; round < 500; ++round) {
        auto working = onWorker([round] { return round; });
        ASSERT_EQ(runUntilDone(std::move(working)), round);
    }
}

TEST(RunUntilDone, isCancelledWhenTheEventLoopsAreEnded)
{
    QPromise<void> promise;
    promise.start();
    QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(); });
    EXPECT_THROW(runUntilDone(sevenAfter(promise.future())), CancellationError);
    promise.finish();
    QCoreApplication::processEvents();
}

}  // namespace

#include "Fakes/EventLoop.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QTimer>

#include <stdexcept>
#include <utility>

namespace TestSupport {
namespace {

struct Ending {
    bool isOver = false;
    std::exception_ptr error;
};

QCoro::Task<> follow(QCoro::Task<> task, Ending* ending)
{
    try {
        co_await task;
    } catch (...) {
        ending->error = std::current_exception();
    }
    ending->isOver = true;
}

}  // namespace

bool eventually(const std::function<bool()>& condition)
{
    const QDeadlineTimer deadline(20'000);
    // Conditions that threads bring about wake nobody up, so the loop looks again now and then.
    QTimer heartbeat;
    heartbeat.start(2);
    while (!condition()) {
        if (deadline.hasExpired()) {
            return false;
        }
        QCoreApplication::processEvents(QEventLoop::AllEvents | QEventLoop::WaitForMoreEvents);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return true;
}

void processEvents()
{
    for (int turn = 0; turn < 10; ++turn) {
        QCoreApplication::processEvents();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
}

void runToEnd(QCoro::Task<> task)
{
    Ending ending;
    const auto following = follow(std::move(task), &ending);
    if (!eventually([&] { return ending.isOver; })) {
        throw std::runtime_error("the task did not end");
    }
    if (ending.error) {
        std::rethrow_exception(ending.error);
    }
}

}  // namespace TestSupport

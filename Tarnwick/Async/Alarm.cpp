#include "Tarnwick/Async/Alarm.h"

#include <QCoro/QCoroFuture>

#include <utility>

namespace Tarnwick {

Alarm::Alarm(std::shared_ptr<Clock> clock, std::function<void()> action)
    : _clock(std::move(clock))
    , _action(std::move(action))
{}

void Alarm::ringAfter(std::chrono::milliseconds delay)
{
    _task.start(
        [this, delay](std::stop_token stopToken) { return ring(delay, std::move(stopToken)); });
}

QCoro::Task<> Alarm::ring(std::chrono::milliseconds delay, std::stop_token stopToken)
{
    const QFuture<void> rest = _clock->sleep(delay, stopToken);
    co_await rest;
    if (!stopToken.stop_requested()) {
        _action();
    }
}

}  // namespace Tarnwick

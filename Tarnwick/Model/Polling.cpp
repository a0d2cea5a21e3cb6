#include "Tarnwick/Model/Polling.h"

#include <QCoro/QCoroFuture>

#include <algorithm>
#include <utility>

namespace Tarnwick {

using namespace std::chrono_literals;

namespace {

/// The minimum time between a refresh and a retry.
constexpr std::chrono::milliseconds rest = 2s;

/// A network that has just returned may not resolve names yet.
constexpr std::chrono::milliseconds retryTimeOfNetwork = 2min;

}  // namespace

Polling::Polling(
    std::shared_ptr<Clock> clock, std::shared_ptr<MachineEvents> machine, Refreshing refreshing)
    : _clock(std::move(clock))
    , _machine(std::move(machine))
    , _refreshing(std::move(refreshing))
{
    if (_machine) {
        connect(_machine.get(), &MachineEvents::woke, this, &Polling::machineWoke);
        connect(_machine.get(), &MachineEvents::networkReturned, this, &Polling::networkReturned);
    }
}

void Polling::start(std::chrono::seconds period)
{
    _period = period;
    _task.start([this](std::stop_token stopToken) { return run(std::move(stopToken)); });
}

QCoro::Task<> Polling::run(std::stop_token stopToken)
{
    while (!stopToken.stop_requested()) {
        const bool isRetry = isRetrying();
        auto pausing = pauseUntilNext(stopToken);
        co_await pausing;
        if (stopToken.stop_requested()) {
            co_return;
        }
        if (isRetry && !_isDue && !isRetrying()) {
            // Another refresh succeeded meanwhile, or the retry time is over.
            _retryUntil = 0ms;
            continue;
        }
        auto resting = restAsLongAsNeeded(stopToken);
        co_await resting;
        if (stopToken.stop_requested()) {
            co_return;
        }
        _isDue = false;
        _begun = _clock->elapsed();
        auto refreshing = _refreshing.refresh();
        co_await refreshing;
        if (!stopToken.stop_requested() && _refreshing.lastEnd() == RefreshEnd::fresh) {
            _retryUntil = 0ms;
        }
    }
}

QCoro::Task<> Polling::pauseUntilNext(std::stop_token stopToken)
{
    const auto wait = untilNext();
    if (wait <= 0ms) {
        co_return;
    }
    _pause = std::stop_source();
    const std::stop_callback endPause(
        stopToken, [pause = _pause]() mutable { pause.request_stop(); });
    const auto asleep = _clock->asleep();
    const QFuture<void> pause = _clock->sleep(wait, _pause.get_token());
    co_await pause;
    if (!stopToken.stop_requested() && !_isDue && _clock->asleep() > asleep) {
        machineWoke();
    }
}

/// Rechecks each period, because the rest may become shorter.
QCoro::Task<> Polling::restAsLongAsNeeded(std::stop_token stopToken)
{
    while (_refreshing.rest && !stopToken.stop_requested()) {
        const std::chrono::milliseconds left = _refreshing.rest();
        if (left <= 0ms) {
            break;
        }
        const QFuture<void> pause =
            _clock->sleep(std::min<std::chrono::milliseconds>(left, _period), stopToken);
        co_await pause;
    }
}

std::chrono::milliseconds Polling::untilNext() const
{
    if (_isDue) {
        return 0ms;
    }
    if (isRetrying()) {
        return std::max(_begun + retryInterval - _clock->elapsed(), rest);
    }
    return _period;
}

bool Polling::isRetrying() const
{
    const RefreshEnd end = _refreshing.lastEnd();
    const bool isWorthwhile =
        end != RefreshEnd::fresh && (end != RefreshEnd::signedOut || !_wasSignedOut);
    return isWorthwhile && _clock->elapsed() < _retryUntil;
}

void Polling::refreshNow(std::chrono::milliseconds newRetryTime)
{
    _retryUntil = std::max(_retryUntil, _clock->elapsed() + newRetryTime);
    _isDue = true;
    _pause.request_stop();
}

void Polling::machineWoke()
{
    _wasSignedOut = _refreshing.lastEnd() == RefreshEnd::signedOut;
    refreshNow(retryTime);
}

void Polling::networkReturned()
{
    if (_refreshing.lastEnd() == RefreshEnd::failed || isRetrying()) {
        refreshNow(retryTimeOfNetwork);
    }
}

}  // namespace Tarnwick

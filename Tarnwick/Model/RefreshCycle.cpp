#include "Tarnwick/Model/RefreshCycle.h"

#include "Tarnwick/Async/Worker.h"

#include <QCoro/QCoroFuture>
#include <QPointer>

#include <utility>
#include <variant>

namespace Tarnwick {

using namespace PullRequestKit;
using namespace std::chrono_literals;

namespace {

/// How often a refresh that waits for another one checks for its end.
constexpr std::chrono::milliseconds checkInterval = 50ms;

}  // namespace

RefreshCycle::RefreshCycle(
    std::shared_ptr<const PullRequestProvider> provider, std::shared_ptr<Clock> clock, Steps steps)
    : _provider(std::move(provider))
    , _clock(std::move(clock))
    , _steps(std::move(steps))
{}

void RefreshCycle::start()
{
    _task.start(
        [this](std::stop_token stopToken) { return refreshUntilStopped(std::move(stopToken)); });
}

void RefreshCycle::schedule(std::chrono::milliseconds delay)
{
    _task.start([this, delay](std::stop_token stopToken) {
        return refreshWhenIdle(delay, std::move(stopToken));
    });
}

void RefreshCycle::stop()
{
    _lifetime.request_stop();
    _task.cancel();
}

QCoro::Task<> RefreshCycle::refreshWhenIdle(
    std::chrono::milliseconds delay, std::stop_token stopToken)
{
    const auto clock = _clock;
    if (delay > 0ms) {
        const QFuture<void> rest = clock->sleep(delay, stopToken);
        co_await rest;
    }
    while (!stopToken.stop_requested() && _isRefreshing) {
        const QFuture<void> pause = clock->sleep(checkInterval, stopToken);
        co_await pause;
    }
    if (!stopToken.stop_requested()) {
        auto refreshing = refreshUntilStopped(stopToken);
        co_await refreshing;
    }
}

QCoro::Task<> RefreshCycle::refreshUntilStopped(std::stop_token stopToken)
{
    const QPointer<RefreshCycle> self(this);
    while (_isRefreshing) {
        // A cancelled refresh does not count as running, but its child process may still be ending.
        // Two refreshes never overlap.
        if (!_running.stop_requested()) {
            co_return;
        }
        const QFuture<void> pause = _clock->sleep(checkInterval, stopToken);
        co_await pause;
        if (!self || stopToken.stop_requested()) {
            co_return;
        }
    }
    begin(stopToken);
    std::optional<std::string> error;
    bool isRefused = false;
    try {
        auto asked = askProvider(stopToken);
        co_await asked;
    } catch (const SecondaryLimitError& limit) {
        error = limit.what();
        isRefused = true;
    } catch (const std::exception& exception) {
        error = exception.what();
    }
    if (!self) {
        co_return;
    }
    if (isRefused) {
        _steps.refused();
    }
    if (error && !stopToken.stop_requested()) {
        fail({MenuState::Kind::failed, *error});
    }
    setRefreshing(false);
}

void RefreshCycle::begin(const std::stop_token& stopToken)
{
    _running = stopToken;
    _end = RefreshEnd::none;
    setRefreshing(true);
    _steps.begin();
}

QCoro::Task<> RefreshCycle::askProvider(std::stop_token stopToken)
{
    const QPointer<RefreshCycle> self(this);
    const auto provider = _provider;
    auto asking =
        onWorker([provider, stopToken] { return provider->authenticationStatus(stopToken); });
    const AuthenticationStatus status = co_await asking;
    if (!self || stopToken.stop_requested()) {
        co_return;
    }
    if (const auto* const signedOut = std::get_if<NotAuthenticated>(&status)) {
        fail({MenuState::Kind::signedOut, signedOut->message});
        co_return;
    }
    if (const auto* const unavailable = std::get_if<Unavailable>(&status)) {
        fail(
            {MenuState::Kind::unavailable, unavailable->message, unavailable->isServiceOutOfReach});
        co_return;
    }
    const RefreshStart start = _steps.start(std::get<Authenticated>(status).account);
    auto fetching = onWorker([provider, start, stopToken] {
        const FetchRequest request{
            reviewerScopeOf(start.settings->reviewerFilter), start.settings->selectedRepositories};
        return refreshResult(fetch(*provider, request, stopToken), start);
    });
    RefreshResult result = co_await fetching;
    if (self != nullptr && !stopToken.stop_requested() && _steps.accept(std::move(result), start)) {
        _end = RefreshEnd::fresh;
    }
}

void RefreshCycle::fail(const MenuState& failure)
{
    _end = failure.kind == MenuState::Kind::signedOut ? RefreshEnd::signedOut : RefreshEnd::failed;
    _steps.fail(failure);
}

void RefreshCycle::setRefreshing(bool isRefreshing)
{
    if (std::exchange(_isRefreshing, isRefreshing) != isRefreshing) {
        Q_EMIT isRefreshingChanged();
    }
}

}  // namespace Tarnwick

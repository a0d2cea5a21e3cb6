#include "Tarnwick/Model/PollingRest.h"

#include <QCoro/QCoroFuture>

#include <algorithm>
#include <utility>

namespace Tarnwick {

using namespace std::chrono_literals;
using PullRequestKit::Quota;

bool isNearlyUsedUp(const Quota& quota)
{
    // Without multiplying, which large numbers would not stand.
    return quota.remaining < quota.limit / 10 + (quota.limit % 10 > 0 ? 1 : 0);
}

std::chrono::minutes restAfterRefusals(int times)
{
    constexpr std::chrono::minutes longest = 30min;
    constexpr int mostDoublings = 5;
    return std::min(std::chrono::minutes(1 << std::min(times - 1, mostDoublings)), longest);
}

PollingRest::PollingRest(std::shared_ptr<Clock> clock)
    : _clock(std::move(clock))
{}

std::chrono::milliseconds PollingRest::remaining() const
{
    return std::max({quotaRemaining(), _refusedUntil - _clock->elapsed(), 0ms});
}

std::chrono::milliseconds PollingRest::quotaRemaining() const
{
    return std::max(_quotaUntil - _clock->elapsed(), 0ms);
}

void PollingRest::setQuota(const Quota& quota)
{
    const bool isOther = std::exchange(_quota, quota) != quota;
    const std::chrono::milliseconds untilReset = quota.resetAt - _clock->now();
    const auto rest = isNearlyUsedUp(quota)
                          ? std::clamp<std::chrono::milliseconds>(untilReset, 0ms, longestRest)
                          : 0ms;
    _quotaUntil = _clock->elapsed() + rest;
    if (isOther) {
        Q_EMIT quotaChanged();
    }
    update();
}

void PollingRest::update()
{
    _task.cancel();
    const bool isResting = quotaRemaining() > 0ms;
    auto resting = isResting ? _quota : std::nullopt;
    if (std::exchange(_restingQuota, resting) != resting) {
        Q_EMIT restingQuotaChanged();
    }
    if (isResting) {
        _task.start([this](std::stop_token stopToken) { return endRest(std::move(stopToken)); });
    }
}

QCoro::Task<> PollingRest::endRest(std::stop_token stopToken)
{
    const QFuture<void> rest = _clock->sleep(quotaRemaining(), stopToken);
    co_await rest;
    if (!stopToken.stop_requested()) {
        update();
    }
}

void PollingRest::refused()
{
    ++_refusals;
    _refusedUntil = _clock->elapsed() + restAfterRefusals(_refusals);
}

void PollingRest::granted()
{
    _refusals = 0;
    _refusedUntil = 0ms;
}

}  // namespace Tarnwick

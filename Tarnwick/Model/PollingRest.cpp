#include "Tarnwick/Model/PollingRest.h"

#include <algorithm>
#include <utility>

namespace Tarnwick {

using namespace std::chrono_literals;
using PullRequestKit::Quota;

bool isNearlyUsedUp(const Quota& quota)
{
    // Not `remaining * 10 < limit`, which could overflow.
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
    , _alarm(_clock, [this] { update(); })
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
    _alarm.cancel();
    const bool isResting = quotaRemaining() > 0ms;
    auto resting = isResting ? _quota : std::nullopt;
    if (std::exchange(_restingQuota, resting) != resting) {
        Q_EMIT restingQuotaChanged();
    }
    if (isResting) {
        _alarm.ringAfter(quotaRemaining());
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

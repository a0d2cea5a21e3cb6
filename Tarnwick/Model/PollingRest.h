#pragma once

#include "PullRequestKit/PullRequestFacts.h"
#include "Tarnwick/Async/Alarm.h"
#include "Tarnwick/Async/Clock.h"

#include <QObject>

#include <chrono>
#include <memory>
#include <optional>

namespace Tarnwick {

/// Whether less than a tenth of the hourly quota is left.
bool isNearlyUsedUp(const PullRequestKit::Quota& quota);

/// The time without polling after this many refusals in a row, from 1: 1, 2, 4 … 30 minutes.
std::chrono::minutes restAfterRefusals(int times);

/// Decides when polling pauses, in order to leave quota for the user's other programs and not to
/// prolong a refusal. Main thread only.
class PollingRest final : public QObject {
    Q_OBJECT

public:
    /// Limits the rest independently of the clock: quotas are hourly.
    static constexpr std::chrono::hours longestRest{1};

    /// Requires: `clock` is not null.
    explicit PollingRest(std::shared_ptr<Clock> clock);

    /// The last known quota.
    const std::optional<PullRequestKit::Quota>& quota() const { return _quota; }

    /// Set while polling rests because of the quota.
    const std::optional<PullRequestKit::Quota>& restingQuota() const { return _restingQuota; }

    /// The remaining rest; 0 without one.
    std::chrono::milliseconds remaining() const;

    void setQuota(const PullRequestKit::Quota& quota);

    /// Call when the service hit its secondary limit.
    void refused();

    /// Call when a refresh was not refused.
    void granted();

Q_SIGNALS:
    void quotaChanged();
    void restingQuotaChanged();

private:
    std::chrono::milliseconds quotaRemaining() const;
    void update();

    std::shared_ptr<Clock> _clock;
    std::optional<PullRequestKit::Quota> _quota;
    std::optional<PullRequestKit::Quota> _restingQuota;
    std::chrono::milliseconds _quotaUntil{0};  ///< By `Clock::elapsed`, like the next.
    std::chrono::milliseconds _refusedUntil{0};
    int _refusals = 0;
    Alarm _alarm;  ///< The end of the quota's rest.
};

}  // namespace Tarnwick

#pragma once

#include "PullRequestKit/PullRequestFacts.h"
#include "Tarnwick/Async/Alarm.h"
#include "Tarnwick/Async/Clock.h"

#include <QObject>

#include <chrono>
#include <memory>
#include <optional>

namespace Tarnwick {

/// Whether less than a tenth of what the service grants within the hour is left.
bool isNearlyUsedUp(const PullRequestKit::Quota& quota);

/// How long the program waits after the service has refused requests because too many came within
/// a short time, for so many times in a row: 1, 2, 4 … 30 minutes. Requires: once at least.
std::chrono::minutes restAfterRefusals(int times);

/// When polling rests, so that the user's other programs have something of the quota left and the
/// service does not refuse for longer. Main thread only.
class PollingRest final : public QObject {
    Q_OBJECT

public:
    /// A quota is for an hour at most, whatever the clock says of its end.
    static constexpr std::chrono::hours longestRest{1};

    /// Requires: a clock.
    explicit PollingRest(std::shared_ptr<Clock> clock);

    /// The last one that was told, or kept.
    const std::optional<PullRequestKit::Quota>& quota() const { return _quota; }

    /// Set while polling rests because the quota is nearly used up.
    const std::optional<PullRequestKit::Quota>& restingQuota() const { return _restingQuota; }

    /// How long polling still rests; 0 when it does not.
    std::chrono::milliseconds remaining() const;

    void setQuota(const PullRequestKit::Quota& quota);

    /// The service refused because too many requests came within a short time.
    void refused();

    /// A refresh came to its end without being refused.
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
    std::chrono::milliseconds _quotaUntil{0};  ///< By `Clock::elapsed`, as the next.
    std::chrono::milliseconds _refusedUntil{0};
    int _refusals = 0;
    Alarm _alarm;  ///< The end of the rest for the quota.
};

}  // namespace Tarnwick

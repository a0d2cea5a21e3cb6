#pragma once

#include "PullRequestKit/Date.h"

#include <QFuture>

#include <chrono>
#include <stop_token>

namespace Tarnwick {

/// The time of day and the passing of time. Main thread only.
class Clock {
public:
    Clock() = default;
    Clock(const Clock&) = delete;
    Clock& operator=(const Clock&) = delete;
    virtual ~Clock() = default;

    virtual PullRequestKit::Date now() const = 0;

    /// Finishes once `duration` has passed on the monotonic clock, or at once when `stopToken` is
    /// stopped: whoever awaits it asks the token which it was. The token must be stopped on the
    /// main thread.
    virtual QFuture<void> sleep(std::chrono::milliseconds duration, std::stop_token stopToken) = 0;
};

}  // namespace Tarnwick

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

    /// What has passed since some moment in the past. Nobody sets this clock, and it counts on
    /// while the machine sleeps.
    virtual std::chrono::milliseconds elapsed() const = 0;

    /// How much of that the machine has slept.
    virtual std::chrono::milliseconds asleep() const = 0;

    /// Finishes once `duration` has passed by `elapsed`, or at once when `stopToken` is stopped:
    /// whoever awaits it asks the token which it was. What falls due while the machine sleeps
    /// finishes when it wakes. The token must be stopped on the main thread.
    virtual QFuture<void> sleep(std::chrono::milliseconds duration, std::stop_token stopToken) = 0;
};

}  // namespace Tarnwick

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

    /// A monotonic time that includes the time the machine sleeps.
    virtual std::chrono::milliseconds elapsed() const = 0;

    /// The part of `elapsed` during which the machine slept.
    virtual std::chrono::milliseconds asleep() const = 0;

    /// Finishes after `duration` of `elapsed` (if the machine sleeps then, when it wakes), or at
    /// once when `stopToken` is stopped. Requires: it is stopped on the main thread.
    virtual QFuture<void> sleep(std::chrono::milliseconds duration, std::stop_token stopToken) = 0;
};

}  // namespace Tarnwick

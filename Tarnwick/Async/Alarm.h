#pragma once

#include "Tarnwick/Async/CancellableTask.h"
#include "Tarnwick/Async/Clock.h"

#include <chrono>
#include <functional>
#include <memory>
#include <stop_token>

namespace Tarnwick {

/// Calls a function once after a delay, unless cancelled or destroyed before. Main thread only.
class Alarm {
public:
    /// Requires: `clock` is not null, and `action` does not throw.
    Alarm(std::shared_ptr<Clock> clock, std::function<void()> action);

    /// Replaces a running alarm. Requires: `delay` is positive.
    void ringAfter(std::chrono::milliseconds delay);

    void cancel() { _task.cancel(); }

private:
    QCoro::Task<> ring(std::chrono::milliseconds delay, std::stop_token stopToken);

    std::shared_ptr<Clock> _clock;
    std::function<void()> _action;
    CancellableTask _task;
};

}  // namespace Tarnwick

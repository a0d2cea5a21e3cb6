#pragma once

#include "Tarnwick/Async/CancellableTask.h"
#include "Tarnwick/Async/Clock.h"

#include <chrono>
#include <functional>
#include <memory>
#include <stop_token>

namespace Tarnwick {

/// Calls a function once, after a while on a clock. It does not once the alarm was cancelled or is
/// gone. Main thread only.
class Alarm {
public:
    /// Requires: a clock, and an action, which throws nothing.
    Alarm(std::shared_ptr<Clock> clock, std::function<void()> action);

    /// In place of what was waited for before. Requires: `delay` is positive.
    void ringAfter(std::chrono::milliseconds delay);

    void cancel() { _task.cancel(); }

private:
    QCoro::Task<> ring(std::chrono::milliseconds delay, std::stop_token stopToken);

    std::shared_ptr<Clock> _clock;
    std::function<void()> _action;
    CancellableTask _task;
};

}  // namespace Tarnwick

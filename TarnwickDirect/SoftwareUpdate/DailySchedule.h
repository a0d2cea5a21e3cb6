#pragma once

#include "Tarnwick/Async/CancellableTask.h"
#include "Tarnwick/Async/Clock.h"
#include "Tarnwick/Persistence/DefaultsStore.h"

#include <functional>
#include <memory>

namespace TarnwickDirect {

/// Reports when an automatic check is due: 24 hours after the last check of any kind, but not in
/// the first minute. Main thread only.
class DailySchedule {
public:
    /// Requires: no null arguments.
    DailySchedule(
        std::shared_ptr<Tarnwick::DefaultsStore> defaults,
        std::shared_ptr<Tarnwick::Clock> clock,
        std::function<void()> onDue);

    /// Call when any check begins.
    void noteCheck();

private:
    QCoro::Task<> run(std::stop_token stopToken);
    std::chrono::milliseconds untilDue() const;

    std::shared_ptr<Tarnwick::DefaultsStore> _defaults;
    std::shared_ptr<Tarnwick::Clock> _clock;
    std::function<void()> _onDue;
    Tarnwick::CancellableTask _task;
};

}  // namespace TarnwickDirect

#pragma once

#include "Tarnwick/Async/CancellableTask.h"
#include "Tarnwick/Async/Clock.h"
#include "Tarnwick/Persistence/DefaultsStore.h"

#include <functional>
#include <memory>

namespace TarnwickDirect {

/// Says when a check is due that nobody asks for: 24 hours after the last one of any kind, but not
/// in the first minute. In between it sleeps. Main thread only.
class DailySchedule {
public:
    /// Requires: all are there.
    DailySchedule(
        std::shared_ptr<Tarnwick::DefaultsStore> defaults,
        std::shared_ptr<Tarnwick::Clock> clock,
        std::function<void()> onDue);

    /// A check begins now, whoever asked for it.
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

#pragma once

#include "Tarnwick/Async/CancellableTask.h"
#include "Tarnwick/Async/Clock.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateSettings.h"

#include <functional>

namespace TarnwickDirect {

/// Says when the feed is to be looked at without being asked: 24 hours after the last look, but not
/// in the first minute. In between it sleeps. Main thread only.
class DailySchedule {
public:
    /// Requires: the clock is there and `onDue` can be called.
    DailySchedule(
        UpdateSettings settings,
        std::shared_ptr<Tarnwick::Clock> clock,
        std::function<void()> onDue);

    /// The feed is being looked at now, whoever asked for that.
    void noteCheck();

private:
    QCoro::Task<> run(std::stop_token stopToken);
    std::chrono::milliseconds untilDue() const;

    UpdateSettings _settings;
    std::shared_ptr<Tarnwick::Clock> _clock;
    std::function<void()> _onDue;
    Tarnwick::CancellableTask _task;
};

}  // namespace TarnwickDirect

#pragma once

#include "Tarnwick/Async/CancellableTask.h"
#include "Tarnwick/Async/Clock.h"
#include "Tarnwick/Desktop/MachineEvents.h"

#include <QCoro/QCoroTask>
#include <QObject>

#include <functional>
#include <memory>

namespace Tarnwick {

enum class RefreshEnd {
    none,  ///< Running, cancelled, or none yet.
    fresh,
    failed,
    signedOut,
};

/// Refreshes periodically and when the machine wakes. A refresh that fails after waking, as it does
/// while the network is missing, is retried for a while, and at once when the network returns. Does
/// not wake up before a refresh is due. Main thread only.
class Polling final : public QObject {
    Q_OBJECT

public:
    struct Refreshing {
        /// Refreshes once and resumes at its end, or at once if another refresh is running.
        std::function<QCoro::Task<>()> refresh;
        std::function<RefreshEnd()> lastEnd;
        /// The remaining time without automatic refreshes. May be empty.
        std::function<std::chrono::milliseconds()> rest = nullptr;
    };

    /// The time between the starts of retries.
    static constexpr std::chrono::seconds retryInterval{20};

    /// Retries end this long after waking.
    static constexpr std::chrono::minutes retryTime{10};

    /// `machine` may be null. Requires: `clock` and the other functions are set.
    Polling(
        std::shared_ptr<Clock> clock,
        std::shared_ptr<MachineEvents> machine,
        Refreshing refreshing);

    /// Restarts the period. A running refresh continues.
    void start(std::chrono::seconds period);

    void stop() { _task.cancel(); }

private:
    QCoro::Task<> run(std::stop_token stopToken);
    QCoro::Task<> pauseUntilNext(std::stop_token stopToken);
    QCoro::Task<> restAsLongAsNeeded(std::stop_token stopToken);
    std::chrono::milliseconds untilNext() const;
    bool isRetrying() const;
    void refreshNow(std::chrono::milliseconds retryTime);
    void machineWoke();
    void networkReturned();

    std::shared_ptr<Clock> _clock;
    std::shared_ptr<MachineEvents> _machine;
    Refreshing _refreshing;
    std::chrono::seconds _period{0};
    bool _isDue = false;
    bool _wasSignedOut = false;  ///< At the time of waking.
    std::chrono::milliseconds _begun{0};
    std::chrono::milliseconds _retryUntil{0};
    std::stop_source _pause;
    CancellableTask _task;
};

}  // namespace Tarnwick

#pragma once

#include "Tarnwick/Async/CancellableTask.h"
#include "Tarnwick/Async/Clock.h"
#include "Tarnwick/Desktop/MachineEvents.h"

#include <QCoro/QCoroTask>
#include <QObject>

#include <functional>
#include <memory>

namespace Tarnwick {

/// How the last refresh ended.
enum class RefreshEnd {
    none,  ///< It runs, was cancelled, or there was none.
    fresh,
    failed,
    signedOut,
};

/// Refreshes once each period, and when the machine has woken: then a refresh that fails, as it
/// does before the network is there, is repeated soon, for a while, and at once when the network
/// returns. Nothing wakes up before it is due. Main thread only.
class Polling final : public QObject {
    Q_OBJECT

public:
    struct Refreshing {
        /// Makes one refresh and resumes when it has ended, at once while another one runs.
        std::function<QCoro::Task<>()> refresh;
        std::function<RefreshEnd()> lastEnd;
        /// How long no refresh is to come by itself; without it, polling never rests.
        std::function<std::chrono::milliseconds()> rest = nullptr;
    };

    /// A refresh that fails after the machine woke is repeated so long after it began.
    static constexpr std::chrono::seconds retryInterval{20};

    /// For so long after the machine woke.
    static constexpr std::chrono::minutes retryTime{10};

    /// `machine` may be null. Requires: a clock, and the functions but for the last.
    Polling(
        std::shared_ptr<Clock> clock,
        std::shared_ptr<MachineEvents> machine,
        Refreshing refreshing);

    /// The period counts from now. A refresh that runs goes on.
    void start(std::chrono::seconds period);

    void stop();

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
    bool _wasSignedOut = false;  ///< When the machine woke.
    std::chrono::milliseconds _begun{0};
    std::chrono::milliseconds _retryUntil{0};
    std::stop_source _pause;
    CancellableTask _task;
};

}  // namespace Tarnwick

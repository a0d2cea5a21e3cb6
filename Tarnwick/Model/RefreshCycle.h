#pragma once

#include "PullRequestKit/PullRequestProvider.h"
#include "Tarnwick/Async/CancellableTask.h"
#include "Tarnwick/Async/Clock.h"
#include "Tarnwick/Model/MenuState.h"
#include "Tarnwick/Model/Polling.h"
#include "Tarnwick/Model/RefreshResult.h"

#include <QCoro/QCoroTask>
#include <QObject>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <stop_token>
#include <string>

namespace Tarnwick {

/// Asks the provider for the login, and then for the pull requests and repositories, never twice at
/// the same time. Main thread only; the provider is asked on a worker thread.
class RefreshCycle final : public QObject {
    Q_OBJECT

public:
    /// What a refresh does beside asking. Nothing is called any more once it was cancelled.
    struct Steps {
        std::function<void()> begin;
        /// Somebody is signed in: yields what the answer is made ready for.
        std::function<RefreshStart(const std::optional<std::string>& account)> start;
        /// Whether the answer was still the right one, and was taken over.
        std::function<bool(RefreshResult result, const RefreshStart& start)> accept;
        /// The refresh ends without an answer.
        std::function<void(const MenuState& failure)> fail;
        /// GitHub's secondary limit was hit, also when the refresh was cancelled.
        std::function<void()> refused;
    };

    /// Requires: all of them.
    RefreshCycle(
        std::shared_ptr<const PullRequestKit::PullRequestProvider> provider,
        std::shared_ptr<Clock> clock,
        Steps steps);

    bool isRefreshing() const { return _isRefreshing; }

    RefreshEnd lastEnd() const { return _end; }

    /// One refresh; returns at once while another one runs. Resumes when it has ended.
    QCoro::Task<> refresh();

    /// Starts a refresh in place of a running one that was started or scheduled.
    void start();

    /// The same for one that must not be left out: it waits for `delay` and for the end of a
    /// running one, whose answer no longer is the right one.
    void schedule(std::chrono::milliseconds delay);

    /// Cancels what runs. There are no further refreshes.
    void stop();

Q_SIGNALS:
    void isRefreshingChanged();

private:
    QCoro::Task<> refreshUntilStopped(std::stop_token stopToken);
    QCoro::Task<> refreshWhenIdle(std::chrono::milliseconds delay, std::stop_token stopToken);
    QCoro::Task<> askProvider(std::stop_token stopToken);
    void begin(const std::stop_token& stopToken);
    void fail(const MenuState& failure);
    void setRefreshing(bool isRefreshing);

    std::shared_ptr<const PullRequestKit::PullRequestProvider> _provider;
    std::shared_ptr<Clock> _clock;
    Steps _steps;
    bool _isRefreshing = false;
    RefreshEnd _end = RefreshEnd::none;
    std::stop_token _running;  ///< The one that `_isRefreshing` speaks of.
    std::stop_source _lifetime;
    CancellableTask _task;
};

}  // namespace Tarnwick

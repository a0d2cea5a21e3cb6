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

/// Requests the login, the pull requests and the repositories on a worker thread. Refreshes never
/// overlap. Main thread only.
class RefreshCycle final : public QObject {
    Q_OBJECT

public:
    /// The caller's part of a refresh. After cancellation only `refused` is called.
    struct Steps {
        std::function<void()> begin;
        /// Called when signed in. Returns the inputs for preparing the answer.
        std::function<RefreshStart(const std::optional<std::string>& account)> start;
        /// Applies the answer. Returns false if it is outdated.
        std::function<bool(RefreshResult result, const RefreshStart& start)> accept;
        std::function<void(const MenuState& failure)> fail;
        /// GitHub's secondary limit was hit; called even after cancellation.
        std::function<void()> refused;
    };

    /// Requires: nothing is null.
    RefreshCycle(
        std::shared_ptr<const PullRequestKit::PullRequestProvider> provider,
        std::shared_ptr<Clock> clock,
        Steps steps);

    bool isRefreshing() const { return _isRefreshing; }

    RefreshEnd lastEnd() const { return _end; }

    /// Refreshes once and resumes at its end. Does nothing while another refresh is running.
    QCoro::Task<> refresh() { return refreshUntilStopped(_lifetime.get_token()); }

    /// Starts a refresh and cancels one that was started or scheduled.
    void start();

    /// Like `start`, but waits for `delay` and for the end of a running refresh.
    void schedule(std::chrono::milliseconds delay);

    /// Cancels the current refresh and allows no further ones.
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
    std::stop_token _running;  ///< The token of the current refresh.
    std::stop_source _lifetime;
    CancellableTask _task;
};

}  // namespace Tarnwick

#include "Tarnwick/Model/PullRequestNotifications.h"

#include "PullRequestKit/TurnWording.h"

#include <QCoro/QCoroFuture>
#include <QPointer>
#include <QPromise>

#include <utility>

namespace Tarnwick {

using PullRequestKit::PullRequest;
using PullRequestKit::reasonText;

namespace {

/// Qt 6.4 and 6.8 have no common function for this that is not deprecated.
QFuture<void> finishedFuture()
{
    QPromise<void> promise;
    promise.start();
    promise.finish();
    return promise.future();
}

}  // namespace

PullRequestNotifications::PullRequestNotifications(
    std::shared_ptr<PullRequestNotifying> notifier,
    const Settings& settings,
    SettingsOperations& operations)
    : _notifier(std::move(notifier))
    , _settings(settings)
    , _operations(operations)
    , _prepared(finishedFuture())
{}

void PullRequestNotifications::prepare()
{
    if (notifies(_settings)) {
        _setupTask.start(
            [this](std::stop_token stopToken) { return checkPermission(std::move(stopToken)); });
    }
}

QCoro::Task<> PullRequestNotifications::checkPermission(std::stop_token stopToken)
{
    QPromise<void> prepared;
    prepared.start();
    _prepared = prepared.future();
    // If the permission cannot even be requested, the settings stay.
    bool isGranted = true;
    try {
        auto request = _notifier->requestAuthorization();
        isGranted = co_await request;
    } catch (const std::exception&) {
        isGranted = true;
    }
    if (!stopToken.stop_requested() && !isGranted) {
        _operations.setNotifications(&Settings::unblockedNotificationsEnabled, false);
        _operations.setNotifications(&Settings::newPullRequestNotificationsEnabled, false);
        _operations.setNotifications(&Settings::yourTurnNotificationsEnabled, false);
    }
    prepared.finish();
}

QCoro::Task<> PullRequestNotifications::toggle(bool Settings::* setting)
{
    const QPointer<PullRequestNotifications> self(this);
    Q_EMIT errorChanged(std::nullopt);
    setSettingsChangeRequired(false);
    if (_settings.*setting) {
        _operations.setNotifications(setting, false);
        co_return;
    }
    bool isGranted = false;
    std::optional<std::string> error;
    try {
        auto request = _notifier->requestAuthorization();
        isGranted = co_await request;
    } catch (const std::exception& exception) {
        error = std::string("Notifications could not be enabled: ") + exception.what();
    }
    if (!self) {
        co_return;
    }
    if (error) {
        Q_EMIT errorChanged(error);
        co_return;
    }
    _operations.setNotifications(setting, isGranted);
    setSettingsChangeRequired(!isGranted);
}

void PullRequestNotifications::deliver(RefreshedPullRequests refreshed)
{
    _deliveryTask.start([&](std::stop_token stopToken) {
        return deliverAll(std::move(refreshed), std::move(stopToken));
    });
}

QCoro::Task<> PullRequestNotifications::deliverAll(
    RefreshedPullRequests refreshed, std::stop_token stopToken)
{
    const QFuture<void> prepared = _prepared;
    co_await prepared;
    for (PullRequest& pullRequest : refreshed.appeared) {
        if (stopToken.stop_requested() || !_settings.newPullRequestNotificationsEnabled) {
            break;
        }
        auto delivery = report(
            _notifier->notifyNew(std::move(pullRequest)),
            "A new pull request notification could not be delivered: ",
            stopToken);
        co_await delivery;
    }
    for (PullRequest& pullRequest : refreshed.unblocked) {
        if (stopToken.stop_requested()) {
            break;
        }
        // Emitted early, because the next refresh may come before the notification is shown.
        Q_EMIT unblockedSettled(pullRequest.id);
        if (!_settings.unblockedNotificationsEnabled) {
            continue;
        }
        auto delivery = report(
            _notifier->notifyUnblocked(std::move(pullRequest)),
            "An unblocked notification could not be delivered: ",
            stopToken);
        co_await delivery;
    }
}

void PullRequestNotifications::deliverTurns(std::vector<TurnMove> moves)
{
    _turnsTask.start([&](std::stop_token stopToken) {
        return deliverEach(std::move(moves), std::move(stopToken));
    });
}

QCoro::Task<> PullRequestNotifications::deliverEach(
    std::vector<TurnMove> moves, std::stop_token stopToken)
{
    const QFuture<void> prepared = _prepared;
    co_await prepared;
    for (const TurnMove& move : moves) {
        if (stopToken.stop_requested() || !_settings.yourTurnNotificationsEnabled) {
            break;
        }
        // Emitted early, because the next refresh may come before the notification is shown.
        Q_EMIT turnSettled(move);
        auto delivery = report(
            _notifier->notifyTurn(move.pullRequest, reasonText(move.turn)),
            "A \"Your turn\" notification could not be delivered: ",
            stopToken);
        co_await delivery;
    }
}

QCoro::Task<> PullRequestNotifications::report(
    QCoro::Task<> delivery, std::string failure, std::stop_token stopToken)
{
    std::string problem;
    try {
        co_await delivery;
    } catch (const std::exception& exception) {
        problem = failure + exception.what();
    }
    if (!stopToken.stop_requested() && !problem.empty()) {
        Q_EMIT errorChanged(problem);
    }
}

void PullRequestNotifications::setSettingsChangeRequired(bool isRequired)
{
    if (std::exchange(_isSettingsChangeRequired, isRequired) != isRequired) {
        Q_EMIT settingsChangeRequiredChanged();
    }
}

}  // namespace Tarnwick

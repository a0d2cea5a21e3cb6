#pragma once

#include "Tarnwick/Async/CancellableTask.h"
#include "Tarnwick/Desktop/PullRequestNotifying.h"
#include "Tarnwick/Model/NotificationDecisions.h"
#include "Tarnwick/Model/SettingsOperations.h"
#include "Tarnwick/Model/TurnMoves.h"

#include <QFuture>
#include <QObject>
#include <QPromise>

#include <memory>
#include <string>
#include <vector>

namespace Tarnwick {

/// What one refresh changed, as far as notifications are concerned.
struct RefreshedPullRequests {
    std::vector<PullRequestKit::PullRequest> appeared;   ///< New ones in sight.
    std::vector<PullRequestKit::PullRequest> unblocked;  ///< Blocked when last decided, now not.
};

/// The notification settings: the user's switching of them, the permission they need, and the
/// delivery of one refresh's notifications at a time. Main thread only.
class PullRequestNotifications final : public QObject {
    Q_OBJECT

public:
    /// `settings` and `operations` must outlive this object, which changes the flags by them.
    PullRequestNotifications(
        std::shared_ptr<PullRequestNotifying> notifier,
        const Settings& settings,
        SettingsOperations& operations);

    /// The desktop refused permission, and the user has to change that in its settings.
    bool isSettingsChangeRequired() const { return _isSettingsChangeRequired; }

    void dismissSettingsChange();

    /// Checks the permission when a setting is on, other than by the user's switching; without it
    /// all are turned off.
    void prepare();

    /// Switches one of the flags of the notifications. Turning it on takes permission.
    QCoro::Task<> toggle(bool Settings::* setting);

    /// Delivers what the settings ask for, after a running permission check. What an earlier call
    /// has not delivered yet is dropped; of what is unblocked, `unblockedSettled` tells what was
    /// not.
    void deliver(RefreshedPullRequests refreshed);

    /// The same for what has come to be the user's turn, of which `turnSettled` tells.
    void deliverTurns(std::vector<TurnMove> moves);

Q_SIGNALS:
    void settingsChangeRequiredChanged();
    /// A notification of this pull request is on its way, or the setting is off: it is not to be
    /// handed over again.
    void unblockedSettled(const PullRequestKit::PullRequestID& id);
    void turnSettled(const Tarnwick::TurnMove& move);  ///< Its notification is on its way.
    /// A text for the user, or nothing when the one before no longer holds.
    void errorChanged(const std::optional<std::string>& error);

private:
    QCoro::Task<> checkPermission(std::stop_token stopToken);
    QCoro::Task<> deliverAll(RefreshedPullRequests refreshed, std::stop_token stopToken);
    QCoro::Task<> deliverEach(std::vector<TurnMove> moves, std::stop_token stopToken);
    QCoro::Task<> report(QCoro::Task<> delivery, std::string failure, std::stop_token stopToken);
    void setSettingsChangeRequired(bool isRequired);

    std::shared_ptr<PullRequestNotifying> _notifier;
    const Settings& _settings;
    SettingsOperations& _operations;
    bool _isSettingsChangeRequired = false;
    QFuture<void> _prepared;
    CancellableTask _setupTask;
    CancellableTask _deliveryTask;
    CancellableTask _turnsTask;
};

}  // namespace Tarnwick

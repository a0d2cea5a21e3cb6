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

/// The changes of a refresh that call for notifications.
struct RefreshedPullRequests {
    std::vector<PullRequestKit::PullRequest> appeared;   ///< Newly visible.
    std::vector<PullRequestKit::PullRequest> unblocked;  ///< Were blocked before.
};

/// Switches notifications on and off, requests permission, and delivers the notifications of one
/// refresh at a time. Main thread only.
class PullRequestNotifications final : public QObject {
    Q_OBJECT

public:
    /// `settings` and `operations` must outlive it.
    PullRequestNotifications(
        std::shared_ptr<PullRequestNotifying> notifier,
        const Settings& settings,
        SettingsOperations& operations);

    /// The desktop refused permission; the user has to change that in its settings.
    bool isSettingsChangeRequired() const { return _isSettingsChangeRequired; }

    void dismissSettingsChange() { setSettingsChangeRequired(false); }

    /// Checks the permission if a setting is on, and turns all off without it.
    void prepare();

    /// Toggles a notification setting. Turning it on requires permission.
    QCoro::Task<> toggle(bool Settings::* setting);

    /// Shows what the settings ask for, after a running permission check. Undelivered notifications
    /// of an earlier call are dropped; those without `unblockedSettled` may be passed again.
    void deliver(RefreshedPullRequests refreshed);

    /// The same for turns, with `turnSettled`.
    void deliverTurns(std::vector<TurnMove> moves);

Q_SIGNALS:
    void settingsChangeRequiredChanged();
    /// The notification is being shown, or is turned off. Do not deliver it again.
    void unblockedSettled(const PullRequestKit::PullRequestID& id);
    void turnSettled(const Tarnwick::TurnMove& move);  ///< The notification is being shown.
    /// A message for the user; nothing when the previous one no longer applies.
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

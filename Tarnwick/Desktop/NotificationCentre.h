#pragma once

#include "Tarnwick/Async/Clock.h"
#include "Tarnwick/Desktop/NotificationPresentationDelegate.h"
#include "Tarnwick/Desktop/PullRequestNotifying.h"
#include "Tarnwick/Desktop/ShownNotifications.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QStringList>

#include <chrono>
#include <memory>
#include <optional>

namespace Tarnwick {

enum class NotificationServerStatus {
    running,
    startable,  ///< By D-Bus activation.
    absent,
    unknown,  ///< The bus did not answer.
};

/// Permission is granted if a server is running or startable.
NotificationAuthorization authorizationOf(NotificationServerStatus status);

/// The desktop's notification server, `org.freedesktop.Notifications`. Callers keep it alive until
/// their task has ended. Never blocks. Main thread only.
class NotificationCentre final : public QObject {
    Q_OBJECT

public:
    /// The bus need not be connected.
    NotificationCentre(QDBusConnection bus, std::shared_ptr<Clock> clock);

    /// Receives the user's responses. Without one they are dropped.
    void setDelegate(std::shared_ptr<const NotificationPresentationDelegate> delegate);

    /// Does not start a server.
    QCoro::Task<NotificationServerStatus> status();

    /// Whether a server answers; it is started if necessary. Just after the program's start, which
    /// may be that of the session, waits for a missing server. Throws `std::runtime_error` with a
    /// message for the user when the server does not answer.
    QCoro::Task<bool> requestAuthorization();

    /// Shows a notification or replaces the one with the same identifier. Throws
    /// `std::runtime_error` with a message for the user.
    QCoro::Task<> add(NotificationRequest request);

private Q_SLOTS:
    void ownerChanged(const QString& name, const QString& oldOwner, const QString& newOwner);
    void actionInvoked(quint32 id, const QString& action, const QDBusMessage& message);
    void activationToken(quint32 id, const QString& token, const QDBusMessage& message);
    void notificationClosed(quint32 id, quint32 reason, const QDBusMessage& message);

private:
    void listen();
    /// Starts the server if necessary. Returns its unique name or an error.
    QCoro::Task<QDBusMessage> findServer();
    QCoro::Task<QDBusMessage> askCapabilities();
    QCoro::Task<QDBusMessage> deliver(NotificationRequest request);
    QCoro::Task<> waitForServer();
    void follow(const QString& server);
    ShownNotifications::Entry* shown(quint32 id, const QDBusMessage& message);

    QDBusConnection _bus;
    std::shared_ptr<Clock> _clock;
    std::chrono::milliseconds _start;  ///< By `Clock::elapsed`.
    std::shared_ptr<const NotificationPresentationDelegate> _delegate;

    QString _server;                           ///< Its unique name, or empty.
    std::optional<QStringList> _capabilities;  ///< Of the server.
    ShownNotifications _shown;
    std::stop_source _waiting;  ///< Stopped when a server appears.
};

}  // namespace Tarnwick

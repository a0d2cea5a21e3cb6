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

/// What the bus says of a notification server.
enum class NotificationServerStatus {
    running,
    startable,  ///< The bus starts it at the first call.
    absent,
    unknown,  ///< The bus cannot be asked.
};

/// A server that runs or that can be started shows notifications, so permission is granted; nobody
/// has to be asked for it.
NotificationAuthorization authorizationOf(NotificationServerStatus status);

/// The notification server of the desktop, `org.freedesktop.Notifications`. Whoever calls keeps it
/// alive until the task has ended. Main thread only; nothing blocks.
class NotificationCentre final : public QObject {
    Q_OBJECT

public:
    /// Takes no notice of whether the bus is connected.
    NotificationCentre(QDBusConnection bus, std::shared_ptr<Clock> clock);

    /// Whom the user's responses are told. Without one they are dropped.
    void setDelegate(std::shared_ptr<const NotificationPresentationDelegate> delegate);

    /// Starts no server.
    QCoro::Task<NotificationServerStatus> status();

    /// Whether a server answers; it is started if need be. In the first seconds of the program's
    /// life, which may be those of the whole session, a missing server is waited for. Throws
    /// `std::runtime_error` with a sentence for the user when there is one that does not answer.
    QCoro::Task<bool> requestAuthorization();

    /// Shows a notification, in the place of a shown one with the same identifier. Throws
    /// `std::runtime_error` with a sentence for the user when it cannot be delivered.
    QCoro::Task<> add(NotificationRequest request);

private Q_SLOTS:
    void ownerChanged(const QString& name, const QString& oldOwner, const QString& newOwner);
    void actionInvoked(quint32 id, const QString& action, const QDBusMessage& message);
    void activationToken(quint32 id, const QString& token, const QDBusMessage& message);
    void notificationClosed(quint32 id, quint32 reason, const QDBusMessage& message);

private:
    void listen();
    /// Starts the server if need be. Yields its unique name, or an error.
    QCoro::Task<QDBusMessage> findServer();
    QCoro::Task<QDBusMessage> askCapabilities();
    QCoro::Task<QDBusMessage> deliver(NotificationRequest request);
    QCoro::Task<> waitForServer();
    void follow(const QString& server);
    ShownNotifications::Entry* shown(quint32 id, const QDBusMessage& message);

    QDBusConnection _bus;
    std::shared_ptr<Clock> _clock;
    std::chrono::milliseconds _start;  ///< By the clock's `elapsed`.
    std::shared_ptr<const NotificationPresentationDelegate> _delegate;

    QString _server;  ///< Its unique name, or nothing. Its numbers are those shown.
    std::optional<QStringList> _capabilities;  ///< The server's.
    ShownNotifications _shown;
    std::stop_source _waiting;  ///< Stopped when a server comes.
};

}  // namespace Tarnwick

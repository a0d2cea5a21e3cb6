#include "Tarnwick/Desktop/NotificationCentre.h"

#include "Tarnwick/Desktop/BusCall.h"
#include "Tarnwick/Desktop/NotificationMessage.h"

#include <QCoro/QCoroFuture>
#include <QDBusError>

#include <stdexcept>
#include <utility>

namespace Tarnwick {

using namespace std::chrono_literals;

namespace {

const QString service = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");
const QString busService = QStringLiteral("org.freedesktop.DBus");

/// Includes the time a server may take to start.
constexpr std::chrono::milliseconds answerLimit = 10s;

/// A notification server may start this late in a session.
constexpr std::chrono::seconds sessionStart = 10s;

/// Calls are addressed to the server's unique name, so that no other program can answer: since Qt
/// 6.8 a reply does not tell its sender.
QDBusMessage serverCall(const QString& server, const QString& method)
{
    return QDBusMessage::createMethodCall(server, path, service, method);
}

bool isError(const QDBusMessage& reply)
{
    return reply.type() != QDBusMessage::ReplyMessage;
}

/// The name has no owner and cannot be activated.
bool isServerMissing(const QDBusMessage& reply)
{
    const QString name = reply.errorName();
    return name == QDBusError::errorString(QDBusError::ServiceUnknown)
           || name == QDBusError::errorString(QDBusError::Disconnected)
           || name == u"org.freedesktop.DBus.Error.NameHasNoOwner"
           || name.startsWith(u"org.freedesktop.DBus.Error.Spawn.");
}

std::string problemOf(const QDBusMessage& reply)
{
    if (isServerMissing(reply)) {
        return "There is no notification service on this desktop.";
    }
    const QString name = reply.errorName();
    const bool isSilent = name == QDBusError::errorString(QDBusError::NoReply)
                          || name == QDBusError::errorString(QDBusError::Timeout)
                          || name == QDBusError::errorString(QDBusError::TimedOut);
    return isSilent ? "The notification service did not answer."
                    : "The notification service refused the request.";
}

void requireReply(const QDBusMessage& reply)
{
    if (isError(reply)) {
        throw std::runtime_error(problemOf(reply));
    }
}

}  // namespace

NotificationAuthorization authorizationOf(NotificationServerStatus status)
{
    switch (status) {
    case NotificationServerStatus::running:
    case NotificationServerStatus::startable:
        return NotificationAuthorization::authorized;
    case NotificationServerStatus::absent:
    case NotificationServerStatus::unknown:
        return NotificationAuthorization::denied;
    }
    return NotificationAuthorization::denied;
}

NotificationCentre::NotificationCentre(QDBusConnection bus, std::shared_ptr<Clock> clock)
    : _bus(std::move(bus))
    , _clock(std::move(clock))
    , _start(_clock->elapsed())
{
    if (_bus.isConnected()) {
        listen();
    }
}

/// Connects without a sender's name, which Qt would look up in a blocking call.
void NotificationCentre::listen()
{
    _bus.connect(
        busService,
        {},
        busService,
        QStringLiteral("NameOwnerChanged"),
        {service},
        {},
        this,
        SLOT(ownerChanged(QString, QString, QString)));
    const auto follow = [this](const char* signal, const char* slot) {
        _bus.connect({}, path, service, QString::fromLatin1(signal), this, slot);
    };
    follow("ActionInvoked", SLOT(actionInvoked(quint32, QString, QDBusMessage)));
    follow("ActivationToken", SLOT(activationToken(quint32, QString, QDBusMessage)));
    follow("NotificationClosed", SLOT(notificationClosed(quint32, quint32, QDBusMessage)));
}

void NotificationCentre::setDelegate(
    std::shared_ptr<const NotificationPresentationDelegate> delegate)
{
    _delegate = std::move(delegate);
}

QCoro::Task<NotificationServerStatus> NotificationCentre::status()
{
    using enum NotificationServerStatus;
    const QFuture<QDBusMessage> asking =
        callBus(_bus, busMethod(QStringLiteral("NameHasOwner"), {service}), answerLimit);
    const QDBusMessage owned = co_await asking;
    if (isError(owned)) {
        co_return unknown;
    }
    if (owned.arguments().value(0).toBool()) {
        co_return running;
    }
    const QFuture<QDBusMessage> listing =
        callBus(_bus, busMethod(QStringLiteral("ListActivatableNames"), {}), answerLimit);
    const QDBusMessage names = co_await listing;
    if (isError(names)) {
        co_return unknown;
    }
    co_return names.arguments().value(0).toStringList().contains(service) ? startable : absent;
}

QCoro::Task<bool> NotificationCentre::requestAuthorization()
{
    auto asking = askCapabilities();
    QDBusMessage answer = co_await asking;
    if (isServerMissing(answer) && _bus.isConnected()) {
        auto waiting = waitForServer();
        co_await waiting;
        auto askingAgain = askCapabilities();
        answer = co_await askingAgain;
    }
    if (isServerMissing(answer)) {
        co_return false;
    }
    requireReply(answer);
    co_return true;
}

QCoro::Task<> NotificationCentre::waitForServer()
{
    const auto left = _start + sessionStart - _clock->elapsed();
    if (left > 0s) {
        const QFuture<void> pause = _clock->sleep(left, _waiting.get_token());
        co_await pause;
    }
}

QCoro::Task<QDBusMessage> NotificationCentre::findServer()
{
    const QDBusMessage question = busMethod(QStringLiteral("GetNameOwner"), {service});
    const QFuture<QDBusMessage> asking = callBus(_bus, question, answerLimit);
    QDBusMessage owner = co_await asking;
    if (isServerMissing(owner)) {
        const QDBusMessage start =
            busMethod(QStringLiteral("StartServiceByName"), {service, quint32(0)});
        const QFuture<QDBusMessage> starting = callBus(_bus, start, answerLimit);
        const QDBusMessage started = co_await starting;
        if (isError(started)) {
            co_return started;
        }
        const QFuture<QDBusMessage> askingAgain = callBus(_bus, question, answerLimit);
        owner = co_await askingAgain;
    }
    if (!isError(owner)) {
        follow(owner.arguments().value(0).toString());
    }
    co_return owner;
}

QCoro::Task<QDBusMessage> NotificationCentre::askCapabilities()
{
    if (_server.isEmpty()) {
        auto finding = findServer();
        const QDBusMessage found = co_await finding;
        if (isError(found)) {
            co_return found;
        }
    }
    const QString server = _server;
    const QFuture<QDBusMessage> asking =
        callBus(_bus, serverCall(server, QStringLiteral("GetCapabilities")), answerLimit);
    const QDBusMessage reply = co_await asking;
    if (server == _server) {
        if (!isError(reply)) {
            _capabilities = reply.arguments().value(0).toStringList();
        } else if (isServerMissing(reply)) {
            // The signal of its end has yet to arrive.
            follow({});
        }
    }
    co_return reply;
}

QCoro::Task<> NotificationCentre::add(NotificationRequest request)
{
    const QString server = _server;
    auto delivering = deliver(request);
    QDBusMessage reply = co_await delivering;
    if (isError(reply) && !server.isEmpty() && server != _server) {
        // That server has ended; another one may have started.
        auto deliveringAgain = deliver(request);
        reply = co_await deliveringAgain;
    }
    requireReply(reply);
}

QCoro::Task<QDBusMessage> NotificationCentre::deliver(NotificationRequest request)
{
    if (!_capabilities) {
        auto asking = askCapabilities();
        const QDBusMessage answer = co_await asking;
        if (isError(answer)) {
            co_return answer;
        }
    }
    const QString server = _server;
    const QStringList capabilities = _capabilities.value_or(QStringList());
    QDBusMessage message = serverCall(server, QStringLiteral("Notify"));
    message.setArguments(NotificationMessage::notifyArguments(
        request, capabilities, _shown.idOf(request.identifier)));
    const QFuture<QDBusMessage> delivering = callBus(_bus, message, answerLimit);
    const QDBusMessage reply = co_await delivering;
    if (server == _server) {
        if (!isError(reply)) {
            _shown.insert(reply.arguments().value(0).toUInt(), request);
        } else if (isServerMissing(reply)) {
            follow({});
        }
    }
    co_return reply;
}

/// Ids and capabilities belong to one server and are discarded with it.
void NotificationCentre::follow(const QString& server)
{
    if (server != _server) {
        _server = server;
        _capabilities.reset();
        _shown.clear();
    }
}

void NotificationCentre::ownerChanged(
    const QString& /*name*/, const QString& oldOwner, const QString& newOwner)
{
    if (!newOwner.isEmpty()) {
        follow(newOwner);
        std::exchange(_waiting, std::stop_source()).request_stop();
    } else if (oldOwner == _server) {
        // A reply of the next server may overtake the signal of this one's end.
        follow({});
    }
}

/// Any program on the bus can send these signals; only the server's count.
ShownNotifications::Entry* NotificationCentre::shown(quint32 id, const QDBusMessage& message)
{
    return message.service() == _server ? _shown.find(id) : nullptr;
}

void NotificationCentre::actionInvoked(
    quint32 id, const QString& action, const QDBusMessage& message)
{
    const ShownNotifications::Entry* const entry = shown(id, message);
    if (entry == nullptr || !_delegate) {
        return;
    }
    const bool isDefault =
        action == NotificationMessage::defaultAction || action == NotificationMessage::openAction;
    _delegate->didReceive(
        {isDefault ? defaultActionIdentifier : action.toStdString(),
         entry->userInfo,
         entry->activationToken});
}

void NotificationCentre::activationToken(
    quint32 id, const QString& token, const QDBusMessage& message)
{
    if (ShownNotifications::Entry* const entry = shown(id, message)) {
        entry->activationToken = token.toStdString();
    }
}

void NotificationCentre::notificationClosed(
    quint32 id, quint32 /*reason*/, const QDBusMessage& message)
{
    if (shown(id, message) != nullptr) {
        _shown.erase(id);
    }
}

}  // namespace Tarnwick

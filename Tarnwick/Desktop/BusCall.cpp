#include "Tarnwick/Desktop/BusCall.h"

#include <QDBusError>
#include <QDBusPendingCallWatcher>
#include <QPromise>

#include <memory>

namespace Tarnwick {

QDBusMessage busMethod(const QString& method, const QVariantList& arguments)
{
    const QString name = QStringLiteral("org.freedesktop.DBus");
    QDBusMessage call =
        QDBusMessage::createMethodCall(name, QStringLiteral("/org/freedesktop/DBus"), name, method);
    call.setArguments(arguments);
    return call;
}

QFuture<QDBusMessage> callBus(
    const QDBusConnection& bus, const QDBusMessage& message, std::chrono::milliseconds limit)
{
    const auto promise = std::make_shared<QPromise<QDBusMessage>>();
    promise->start();
    if (!bus.isConnected()) {
        // Qt 6.4 never finishes a call on a bus that is not connected.
        promise->addResult(QDBusMessage::createError(
            QDBusError::errorString(QDBusError::Disconnected),
            QStringLiteral("The bus is not connected.")));
        promise->finish();
        return promise->future();
    }
    auto* const watcher =
        new QDBusPendingCallWatcher(bus.asyncCall(message, static_cast<int>(limit.count())));
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher, [promise, watcher] {
        promise->addResult(watcher->reply());
        promise->finish();
        watcher->deleteLater();
    });
    return promise->future();
}

}  // namespace Tarnwick

#include "TarnwickDirect/Tray/StatusNotifierHost.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <QDBusVariant>

#include <utility>

namespace TarnwickDirect {
namespace {

const QString watcher = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString watcherPath = QStringLiteral("/StatusNotifierWatcher");

QDBusMessage question()
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        watcher,
        watcherPath,
        QStringLiteral("org.freedesktop.DBus.Properties"),
        QStringLiteral("Get"));
    message << watcher << QStringLiteral("IsStatusNotifierHostRegistered");
    message.setAutoStartService(false);
    return message;
}

}  // namespace

StatusNotifierHost::StatusNotifierHost(const QDBusConnection& bus, QObject* parent)
    : QObject(parent)
    , _bus(bus)
{}

void StatusNotifierHost::start()
{
    // Qt never answers a call on a bus that is not connected.
    if (!_bus.isConnected()) {
        take(false);
        return;
    }
    auto* const owners =
        new QDBusServiceWatcher(watcher, _bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(
        owners,
        &QDBusServiceWatcher::serviceOwnerChanged,
        this,
        [this](const QString& /*service*/, const QString& /*before*/, const QString& now) {
            if (now.isEmpty()) {
                ++_question;
                take(false);
            } else {
                ask();
            }
        });
    // Without a sender's name, which Qt would look up in a blocking call.
    _bus.connect(
        QString(),
        watcherPath,
        watcher,
        QStringLiteral("StatusNotifierHostRegistered"),
        this,
        SLOT(hostRegistered()));
    ask();
}

void StatusNotifierHost::ask()
{
    const quint64 number = ++_question;
    auto* const call = new QDBusPendingCallWatcher(_bus.asyncCall(question()), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, number, call] {
        const QDBusPendingReply<QDBusVariant> reply = *call;
        call->deleteLater();
        if (number == _question) {
            take(reply.isValid() && reply.value().variant().toBool());
        }
    });
}

void StatusNotifierHost::hostRegistered()
{
    ++_question;
    take(true);
}

void StatusNotifierHost::take(bool isPresent)
{
    if (std::exchange(_isPresent, isPresent) != isPresent) {
        Q_EMIT changed();
    }
    if (!std::exchange(_hasAnswered, true)) {
        Q_EMIT answered();
    }
}

}  // namespace TarnwickDirect

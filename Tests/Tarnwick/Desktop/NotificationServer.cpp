#include "Desktop/NotificationServer.h"

#include <QDBusError>

#include <stdexcept>
#include <utility>

namespace TestSupport {
namespace {

const QString name = QStringLiteral("org.freedesktop.Notifications");
const QString path = QStringLiteral("/org/freedesktop/Notifications");

}  // namespace

NotificationServer::NotificationServer(QDBusConnection bus)
    : _bus(std::move(bus))
{
    if (!_bus.registerObject(
            path, this, QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals)
        || !_bus.registerService(name)) {
        throw std::runtime_error("the notification server cannot take its name");
    }
}

NotificationServer::~NotificationServer()
{
    _bus.unregisterService(name);
    _bus.unregisterObject(path);
}

QStringList NotificationServer::GetCapabilities()
{
    ++capabilityQuestions;
    return capabilities;
}

quint32 NotificationServer::Notify(
    const QString& application,
    quint32 replacedId,
    const QString& icon,
    const QString& summary,
    const QString& body,
    const QStringList& actions,
    const QVariantMap& hints,
    int timeout)
{
    if (refuses) {
        sendErrorReply(QDBusError::LimitsExceeded, QStringLiteral("Too many."));
        return 0;
    }
    Shown entry;
    entry.id = replacedId != 0 ? replacedId : ++_lastId;
    entry.replacedId = replacedId;
    entry.application = application.toStdString();
    entry.icon = icon.toStdString();
    entry.summary = summary.toStdString();
    entry.body = body.toStdString();
    for (const QString& action : actions) {
        entry.actions.push_back(action.toStdString());
    }
    entry.hints = hints;
    entry.timeout = timeout;
    shown.push_back(std::move(entry));
    return shown.back().id;
}

}  // namespace TestSupport

#include "TarnwickDirect/Status/StatusService.h"

#include "StatusIntrospection.h"
#include "TarnwickDirect/Status/BusNames.h"

#include <QDBusError>
#include <QDBusVariant>

namespace TarnwickDirect {
namespace {

QVariantMap differences(const QVariantMap& before, const QVariantMap& after)
{
    QVariantMap found;
    for (auto entry = after.cbegin(); entry != after.cend(); ++entry) {
        if (before.value(entry.key()) != entry.value()) {
            found.insert(entry.key(), entry.value());
        }
    }
    return found;
}

}  // namespace

QString StatusService::introspection() const
{
    const auto document = QString::fromUtf8(statusIntrospection);
    // Other interfaces of the object are added elsewhere.
    const qsizetype first = document.indexOf(QStringLiteral("  <interface"));
    const qsizetype last = document.lastIndexOf(QStringLiteral("</node>"));
    return document.mid(first, last - first);
}

QVariantMap StatusService::properties(const Status& status)
{
    const qlonglong refreshed =
        status.lastRefreshed ? status.lastRefreshed->time_since_epoch().count() : 0;
    return {
        {QStringLiteral("WaitingOnYou"), status.waitingOnYou},
        {QStringLiteral("ReadyToMerge"), status.readyToMerge},
        {QStringLiteral("Blocked"), status.blocked},
        {QStringLiteral("Listed"), status.listed},
        {QStringLiteral("IsStale"), status.isStale},
        {QStringLiteral("LastRefreshed"), refreshed}};
}

void StatusService::setStatus(const Status& status, const QDBusConnection& bus)
{
    const QVariantMap changed = differences(properties(_status), properties(status));
    _status = status;
    if (changed.isEmpty() || !bus.isConnected()) {
        return;
    }
    QDBusMessage signal = QDBusMessage::createSignal(
        BusNames::path, BusNames::properties, QStringLiteral("PropertiesChanged"));
    signal << BusNames::status << changed << QStringList();
    bus.send(signal);
}

bool StatusService::handle(const QDBusMessage& message, const QDBusConnection& bus)
{
    if (message.interface() == BusNames::properties) {
        return handleProperties(message, bus);
    }
    const bool isOurs = message.interface().isEmpty() || message.interface() == BusNames::status;
    return isOurs && handleMethod(message, bus);
}

bool StatusService::handleMethod(const QDBusMessage& message, const QDBusConnection& bus)
{
    const QString member = message.member();
    const bool isRefresh = member == QLatin1String("Refresh");
    if (isRefresh || member == QLatin1String("Show")) {
        if (hasSignature(message, bus, "")) {
            bus.send(message.createReply());
            Q_EMIT isRefresh ? refreshRequested() : showRequested();
        }
        return true;
    }
    if (member == QLatin1String("OpenPullRequest")) {
        if (hasSignature(message, bus, "s")) {
            const QString which = message.arguments().constFirst().toString();
            if (_open && _open(which)) {
                bus.send(message.createReply());
            } else {
                bus.send(message.createErrorReply(
                    QDBusError::InvalidArgs, QStringLiteral("No such pull request is listed.")));
            }
        }
        return true;
    }
    return false;
}

/// Only this interface has properties, all read-only.
bool StatusService::handleProperties(const QDBusMessage& message, const QDBusConnection& bus)
{
    const bool isOne = message.member() == QLatin1String("Get");
    const bool isAll = message.member() == QLatin1String("GetAll");
    const bool isWrite = message.member() == QLatin1String("Set");
    if (!isOne && !isAll && !isWrite) {
        return false;
    }
    const char* const signature = isOne ? "ss" : isAll ? "s" : "ssv";
    if (!hasSignature(message, bus, signature)) {
        return true;
    }
    const QString asked = message.arguments().constFirst().toString();
    const QVariantMap values =
        asked.isEmpty() || asked == BusNames::status ? properties(_status) : QVariantMap();
    if (isAll) {
        bus.send(message.createReply(QVariant(values)));
        return true;
    }
    const QString name = message.arguments().at(1).toString();
    if (!values.contains(name)) {
        bus.send(message.createErrorReply(
            QDBusError::UnknownProperty, QStringLiteral("Unknown property \"%1\".").arg(name)));
    } else if (isWrite) {
        bus.send(message.createErrorReply(
            QDBusError::PropertyReadOnly,
            QStringLiteral("The property \"%1\" is read-only.").arg(name)));
    } else {
        bus.send(message.createReply(QVariant::fromValue(QDBusVariant(values.value(name)))));
    }
    return true;
}

}  // namespace TarnwickDirect

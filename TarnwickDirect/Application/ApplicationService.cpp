#include "TarnwickDirect/Application/ApplicationService.h"

#include "TarnwickDirect/Application/SingleInstance.h"
#include "TarnwickDirect/Status/BusNames.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>

#include <algorithm>
#include <utility>

namespace TarnwickDirect {
namespace {

const QString introspection = QStringLiteral(R"(  <interface name="org.freedesktop.Application">
    <method name="Activate">
      <arg name="platform_data" type="a{sv}" direction="in"/>
    </method>
    <method name="Open">
      <arg name="uris" type="as" direction="in"/>
      <arg name="platform_data" type="a{sv}" direction="in"/>
    </method>
    <method name="ActivateAction">
      <arg name="action_name" type="s" direction="in"/>
      <arg name="parameter" type="av" direction="in"/>
      <arg name="platform_data" type="a{sv}" direction="in"/>
    </method>
  </interface>
)");

PlatformData lastArgument(const QDBusMessage& message)
{
    return PlatformData::from(qdbus_cast<QVariantMap>(message.arguments().constLast()));
}

}  // namespace

QString ApplicationService::introspect(const QString& /*path*/) const
{
    QString all = introspection;
    for (const BusInterface* const interface : _interfaces) {
        all += interface->introspection();
    }
    return all;
}

void ApplicationService::leave(const QDBusConnection& bus)
{
    if (!std::exchange(_hasLeft, true)) {
        giveUpName(bus);
    }
}

bool ApplicationService::handleMessage(
    const QDBusMessage& message, const QDBusConnection& connection)
{
    const bool isOurs =
        message.interface().isEmpty() || message.interface() == BusNames::application;
    if (message.type() != QDBusMessage::MethodCallMessage) {
        return false;
    }
    if (_hasLeft) {
        connection.send(message.createErrorReply(
            QDBusError::UnknownObject, QStringLiteral("Tarnwick is quitting.")));
        return true;
    }
    if (isOurs && handleOwn(message, connection)) {
        return true;
    }
    return std::ranges::any_of(_interfaces, [&](BusInterface* interface) {
        return interface->handle(message, connection);
    });
}

bool ApplicationService::handleOwn(const QDBusMessage& message, const QDBusConnection& connection)
{
    const QString member = message.member();
    // Tarnwick opens no files; it shows the panel instead.
    const bool isOpen = member == QLatin1String("Open");
    if (isOpen || member == QLatin1String("Activate")) {
        if (hasSignature(message, connection, isOpen ? "asa{sv}" : "a{sv}")) {
            connection.send(message.createReply());
            Q_EMIT activateRequested(lastArgument(message));
        }
        return true;
    }
    if (member == QLatin1String("ActivateAction")) {
        if (hasSignature(message, connection, "sava{sv}")) {
            activateAction(message, connection);
        }
        return true;
    }
    return false;
}

void ApplicationService::activateAction(
    const QDBusMessage& message, const QDBusConnection& connection)
{
    const QString action = message.arguments().constFirst().toString();
    const auto answer = [&] { connection.send(message.createReply()); };
    if (action == QLatin1String("toggle")) {
        answer();
        Q_EMIT toggleRequested(lastArgument(message));
    } else if (action == QLatin1String("reload")) {
        answer();
        Q_EMIT reloadRequested();
    } else if (action == QLatin1String("check-for-updates") && _checksForUpdates) {
        answer();
        Q_EMIT checkForUpdatesRequested(lastArgument(message));
    } else if (action == QLatin1String("quit")) {
        answer();
        Q_EMIT quitRequested();
    } else {
        connection.send(message.createErrorReply(
            QDBusError::InvalidArgs, QStringLiteral("Unknown action \"%1\".").arg(action)));
    }
}

}  // namespace TarnwickDirect

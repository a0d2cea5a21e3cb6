#include "TarnwickDirect/Application/ApplicationService.h"

#include "TarnwickDirect/Status/BusNames.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>

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

/// Answers with an error when the arguments are not of these types.
bool hasSignature(
    const QDBusMessage& message, const QDBusConnection& connection, const char* signature)
{
    if (message.signature() == QLatin1String(signature)) {
        return true;
    }
    connection.send(message.createErrorReply(
        QDBusError::InvalidArgs,
        QStringLiteral("%1 takes arguments of the types \"%2\".")
            .arg(message.member(), QLatin1String(signature))));
    return false;
}

}  // namespace

QString ApplicationService::introspect(const QString& /*path*/) const
{
    return introspection + StatusService::introspection();
}

bool ApplicationService::handleMessage(
    const QDBusMessage& message, const QDBusConnection& connection)
{
    const bool isOurs =
        message.interface().isEmpty() || message.interface() == QLatin1String(BusNames::application);
    if (message.type() != QDBusMessage::MethodCallMessage) {
        return false;
    }
    if (!isOurs) {
        return _status.handle(message, connection);
    }
    const QString member = message.member();
    if (member == QLatin1String("Activate")) {
        if (hasSignature(message, connection, "a{sv}")) {
            connection.send(message.createReply());
            Q_EMIT activateRequested(lastArgument(message));
        }
        return true;
    }
    if (member == QLatin1String("Open")) {
        // Tarnwick opens no files: whoever tries gets to see the panel.
        if (hasSignature(message, connection, "asa{sv}")) {
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
    return _status.handle(message, connection);
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
            QDBusError::InvalidArgs, QStringLiteral("There is no action \"%1\".").arg(action)));
    }
}

}  // namespace TarnwickDirect

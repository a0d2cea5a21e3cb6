#include "Tarnwick/Desktop/NotificationMessage.h"

#include <QVariantMap>

namespace Tarnwick::NotificationMessage {
namespace {

/// The name of the desktop file and the icon.
const QString applicationId = QStringLiteral("dev.tarnwick.Tarnwick");

/// The server's default.
constexpr int serversTimeout = -1;

QString bodyText(const std::string& text, const QStringList& capabilities)
{
    const QString body = QString::fromStdString(text);
    return capabilities.contains(QStringLiteral("body-markup")) ? body.toHtmlEscaped() : body;
}

QStringList actions(const QStringList& capabilities)
{
    if (!capabilities.contains(QStringLiteral("actions"))) {
        return {};
    }
    // xfce4-notifyd 0.7 shows a button for every named action. Naming the default action would
    // duplicate "Open".
    return {defaultAction, QString(), openAction, QStringLiteral("Open")};
}

/// There is no standard hint for groups.
QVariantMap hints(const NotificationRequest& request, const QStringList& capabilities)
{
    QVariantMap hints{
        {QStringLiteral("desktop-entry"), applicationId},
        {QStringLiteral("x-dev.tarnwick.thread"), QString::fromStdString(request.threadIdentifier)},
    };
    if (!request.sound.empty() && capabilities.contains(QStringLiteral("sound"))) {
        hints.insert(QStringLiteral("sound-name"), QString::fromStdString(request.sound));
    }
    return hints;
}

}  // namespace

QVariantList notifyArguments(
    const NotificationRequest& request, const QStringList& capabilities, quint32 replacedId)
{
    return {
        QStringLiteral("Tarnwick"),
        replacedId,
        applicationId,
        QString::fromStdString(request.title),
        bodyText(request.subtitle, capabilities),
        actions(capabilities),
        hints(request, capabilities),
        serversTimeout};
}

}  // namespace Tarnwick::NotificationMessage

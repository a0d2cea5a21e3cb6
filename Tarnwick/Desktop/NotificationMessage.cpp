#include "Tarnwick/Desktop/NotificationMessage.h"

#include <QVariantMap>

namespace Tarnwick::NotificationMessage {
namespace {

/// Names the program's launcher and its icon.
const QString applicationId = QStringLiteral("dev.tarnwick.Tarnwick");

/// The server decides how long the notification stays.
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
    // Some servers (xfce4-notifyd 0.7) give every action that has a name a button, the default one
    // too, which then is there twice.
    return {defaultAction, QString(), openAction, QStringLiteral("Open")};
}

/// No hint for groups is in general use, so the thread goes under a name of this program's.
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

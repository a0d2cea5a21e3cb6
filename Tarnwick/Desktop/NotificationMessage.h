#pragma once

#include "Tarnwick/Desktop/NotificationRequest.h"

#include <QString>
#include <QStringList>
#include <QVariantList>

/// How notifications are put for `org.freedesktop.Notifications`. Everything here is safe from any
/// thread.
namespace Tarnwick::NotificationMessage {

/// The plain click on a notification.
inline const QString defaultAction = QStringLiteral("default");

/// The button that does the same where the server draws buttons.
inline const QString openAction = QStringLiteral("open");

/// The arguments of `Notify` for a server with these capabilities. `replacedId` is 0 or the
/// server's number of the notification whose place this one takes.
QVariantList notifyArguments(
    const NotificationRequest& request, const QStringList& capabilities, quint32 replacedId);

}  // namespace Tarnwick::NotificationMessage

#pragma once

#include "Tarnwick/Desktop/NotificationRequest.h"

#include <QString>
#include <QStringList>
#include <QVariantList>

/// Messages for `org.freedesktop.Notifications`. All functions are safe from any thread.
namespace Tarnwick::NotificationMessage {

/// A click on the notification.
inline const QString defaultAction = QStringLiteral("default");

/// The button with the same effect.
inline const QString openAction = QStringLiteral("open");

/// The arguments of `Notify` for a server with these capabilities. `replacedId` is the id of the
/// notification to replace, or 0.
QVariantList notifyArguments(
    const NotificationRequest& request, const QStringList& capabilities, quint32 replacedId);

}  // namespace Tarnwick::NotificationMessage

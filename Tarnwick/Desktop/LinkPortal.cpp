#include "Tarnwick/Desktop/LinkPortal.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

namespace Tarnwick {

void openThroughPortal(const PullRequestKit::Url& url, const std::string& activationToken)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) {
        return;
    }
    QDBusMessage message = QDBusMessage::createMethodCall(
        QStringLiteral("org.freedesktop.portal.Desktop"),
        QStringLiteral("/org/freedesktop/portal/desktop"),
        QStringLiteral("org.freedesktop.portal.OpenURI"),
        QStringLiteral("OpenURI"));
    QVariantMap options;
    if (!activationToken.empty()) {
        options.insert(QStringLiteral("activation_token"), QString::fromStdString(activationToken));
    }
    const QString noParentWindow;
    message << noParentWindow << QString::fromStdString(url.text) << options;
    bus.send(message);
}

}  // namespace Tarnwick

#include "Tarnwick/Interface/Style/DesktopPreferences.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

namespace Tarnwick {
namespace {

using Groups = QMap<QString, QVariantMap>;

const QString portal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString path = QStringLiteral("/org/freedesktop/portal/desktop");
const QString interface = QStringLiteral("org.freedesktop.portal.Settings");

const QString common = QStringLiteral("org.freedesktop.appearance");
const QString gnome = QStringLiteral("org.gnome.desktop.interface");

}  // namespace

DesktopPreferences::DesktopPreferences(
    Appearance& appearance, const QDBusConnection& bus, QObject* parent)
    : QObject(parent)
    , _appearance(appearance)
{
    if (!bus.isConnected()) {
        return;
    }
    QDBusConnection connection = bus;
    // Without a sender's name, which Qt would look up in a blocking call.
    connection.connect(
        QString(),
        path,
        interface,
        QStringLiteral("SettingChanged"),
        this,
        SLOT(settingChanged(QString, QString, QDBusVariant)));
    QDBusMessage question =
        QDBusMessage::createMethodCall(portal, path, interface, QStringLiteral("ReadAll"));
    question << QStringList{common, gnome};
    auto* const answer = new QDBusPendingCallWatcher(connection.asyncCall(question), this);
    connect(answer, &QDBusPendingCallWatcher::finished, this, &DesktopPreferences::readAll);
}

void DesktopPreferences::readAll(QDBusPendingCallWatcher* answer)
{
    answer->deleteLater();
    if (answer->isError() || answer->reply().arguments().isEmpty()) {
        return;
    }
    const auto groups =
        qdbus_cast<Groups>(answer->reply().arguments().constFirst().value<QDBusArgument>());
    for (auto group = groups.cbegin(); group != groups.cend(); ++group) {
        for (auto entry = group->cbegin(); entry != group->cend(); ++entry) {
            take(group.key(), entry.key(), entry.value());
        }
    }
    handOn();
}

void DesktopPreferences::settingChanged(
    const QString& group, const QString& key, const QDBusVariant& value)
{
    take(group, key, value.variant());
    handOn();
}

void DesktopPreferences::take(const QString& group, const QString& key, const QVariant& value)
{
    if (group == common && key == QLatin1String("contrast")) {
        _preferences.higherContrast = value.toUInt() == 1;
    } else if (group == common && key == QLatin1String("reduced-motion")) {
        _wantsLessMotion = value.toUInt() == 1;
    } else if (group == gnome && key == QLatin1String("enable-animations")) {
        _hasAnimations = value.toBool();
    }
}

void DesktopPreferences::handOn()
{
    _preferences.reducedMotion = _wantsLessMotion || !_hasAnimations;
    _appearance.setPreferences(_preferences);
}

}  // namespace Tarnwick

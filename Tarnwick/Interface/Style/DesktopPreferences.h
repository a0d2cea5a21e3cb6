#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QDBusConnection>
#include <QDBusVariant>
#include <QObject>

class QDBusPendingCallWatcher;

namespace Tarnwick {

/// Applies the preferences for motion and contrast from the desktop's settings portal, now and on
/// each change. Asynchronous; without a bus or a portal nothing is changed. Main thread only.
class DesktopPreferences final : public QObject {
    Q_OBJECT

public:
    /// Requires: `appearance` outlives it.
    DesktopPreferences(
        Appearance& appearance, const QDBusConnection& bus, QObject* parent = nullptr);

private Q_SLOTS:
    void settingChanged(const QString& group, const QString& key, const QDBusVariant& value);

private:
    void readAll(QDBusPendingCallWatcher* answer);
    void take(const QString& group, const QString& key, const QVariant& value);
    void handOn();

    Appearance& _appearance;
    Appearance::Preferences _preferences;
    bool _hasAnimations = true;
    bool _wantsLessMotion = false;
};

}  // namespace Tarnwick

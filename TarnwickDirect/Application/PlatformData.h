#pragma once

#include <QByteArray>
#include <QString>
#include <QVariantMap>

namespace TarnwickDirect {

/// The launcher's data that lets a window come to the front; may be empty. Safe from any thread.
struct PlatformData {
    QString activationToken;  ///< For Wayland.
    QString startupId;        ///< For X11.

    bool operator==(const PlatformData&) const = default;

    /// Converts from and to the argument `platform_data` of org.freedesktop.Application.
    static PlatformData from(const QVariantMap& map);
    QVariantMap toMap() const;

    /// The data of this process. Requires: no `QApplication` exists yet, because it removes these
    /// variables from the environment.
    static PlatformData fromEnvironment();

    /// The time of the user's action from the startup id: the X server's, in milliseconds, or 0.
    quint32 startupTime() const;
};

}  // namespace TarnwickDirect

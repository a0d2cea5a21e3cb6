#pragma once

#include <QByteArray>
#include <QString>
#include <QVariantMap>

namespace TarnwickDirect {

/// What a launcher hands on so that the window it asks for may come to the front. Both may be
/// empty. Safe from any thread.
struct PlatformData {
    QString activationToken;  ///< On Wayland.
    QString startupId;        ///< On X11, by the startup notification protocol.

    bool operator==(const PlatformData&) const = default;

    /// From and to the last argument of the methods of org.freedesktop.Application.
    static PlatformData from(const QVariantMap& map);
    QVariantMap toMap() const;

    /// What this process was started with. Requires: there is no `QApplication` yet, which takes
    /// these variables out of the environment.
    static PlatformData fromEnvironment();

    /// The time of the user's action within the startup id, in the X server's milliseconds; 0 when
    /// there is none.
    quint32 startupTime() const;
};

}  // namespace TarnwickDirect

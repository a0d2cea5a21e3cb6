#pragma once

#include <QString>

/// The program's names on the session bus.
namespace TarnwickDirect::BusNames {

inline const QString service = QStringLiteral("dev.tarnwick.Tarnwick");
inline const QString path = QStringLiteral("/dev/tarnwick/Tarnwick");
inline const QString application = QStringLiteral("org.freedesktop.Application");
inline const QString status = QStringLiteral("dev.tarnwick.Tarnwick.Status");
inline const QString properties = QStringLiteral("org.freedesktop.DBus.Properties");

}  // namespace TarnwickDirect::BusNames

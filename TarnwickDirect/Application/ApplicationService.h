#pragma once

#include "TarnwickDirect/Application/PlatformData.h"

#include <QDBusVirtualObject>

namespace TarnwickDirect {

/// The program on the session bus: org.freedesktop.Application at /dev/tarnwick/Tarnwick, with the
/// actions "toggle", "reload" and "quit". Calls are answered at once and become signals here. Main
/// thread only.
class ApplicationService final : public QDBusVirtualObject {
    Q_OBJECT

public:
    static constexpr const char* name = "dev.tarnwick.Tarnwick";
    static constexpr const char* path = "/dev/tarnwick/Tarnwick";
    static constexpr const char* interface = "org.freedesktop.Application";

    using QDBusVirtualObject::QDBusVirtualObject;

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

Q_SIGNALS:
    void activateRequested(const TarnwickDirect::PlatformData& platformData);
    void toggleRequested(const TarnwickDirect::PlatformData& platformData);
    void reloadRequested();
    void quitRequested();

private:
    void activateAction(const QDBusMessage& message, const QDBusConnection& connection);
};

}  // namespace TarnwickDirect

#pragma once

#include "TarnwickDirect/Application/BusInterface.h"
#include "TarnwickDirect/Application/PlatformData.h"
#include "TarnwickDirect/Status/StatusService.h"

#include <QDBusVirtualObject>

#include <vector>

namespace TarnwickDirect {

/// The program on the session bus: org.freedesktop.Application at /dev/tarnwick/Tarnwick, with the
/// actions "toggle", "reload", "quit" and, where the program has an updater, "check-for-updates",
/// and beside it the interface of `StatusService` and those that are added. Calls are answered at
/// once and become signals here. Main thread only.
class ApplicationService final : public QDBusVirtualObject {
    Q_OBJECT

public:
    using QDBusVirtualObject::QDBusVirtualObject;

    /// Whether there is the action "check-for-updates". Not at first.
    void setChecksForUpdates(bool checksForUpdates) { _checksForUpdates = checksForUpdates; }

    StatusService& status() { return _status; }

    /// Adds another interface to the object. Requires: it lives longer than the registration of the
    /// object, or is removed.
    void add(BusInterface& interface) { _interfaces.push_back(&interface); }

    void remove(BusInterface& interface) { std::erase(_interfaces, &interface); }

    /// Gives the program's name back and refuses every call that comes from now on, because the
    /// program ends: whoever starts it meanwhile becomes the first. Waits for nothing.
    void leave(const QDBusConnection& bus);

    QString introspect(const QString& path) const override;
    bool handleMessage(const QDBusMessage& message, const QDBusConnection& connection) override;

Q_SIGNALS:
    void activateRequested(const TarnwickDirect::PlatformData& platformData);
    void toggleRequested(const TarnwickDirect::PlatformData& platformData);
    void reloadRequested();
    void checkForUpdatesRequested(const TarnwickDirect::PlatformData& platformData);
    void quitRequested();

private:
    bool handleOwn(const QDBusMessage& message, const QDBusConnection& connection);
    void activateAction(const QDBusMessage& message, const QDBusConnection& connection);

    StatusService _status;
    std::vector<BusInterface*> _interfaces{&_status};
    bool _checksForUpdates = false;
    bool _hasLeft = false;
};

}  // namespace TarnwickDirect

#pragma once

#include "TarnwickDirect/Application/BusInterface.h"
#include "TarnwickDirect/Application/PlatformData.h"
#include "TarnwickDirect/Status/StatusService.h"

#include <QDBusVirtualObject>

#include <vector>

namespace TarnwickDirect {

/// org.freedesktop.Application at /dev/tarnwick/Tarnwick on the session bus, with the actions
/// "toggle", "reload", "quit" and optionally "check-for-updates". Also serves `StatusService` and
/// added interfaces. Calls are answered at once and emitted as signals. Main thread only.
class ApplicationService final : public QDBusVirtualObject {
    Q_OBJECT

public:
    using QDBusVirtualObject::QDBusVirtualObject;

    /// Whether the action "check-for-updates" exists; initially it does not.
    void setChecksForUpdates(bool checksForUpdates) { _checksForUpdates = checksForUpdates; }

    StatusService& status() { return _status; }

    /// Adds another interface. Requires: it outlives the object's registration, or is removed.
    void add(BusInterface& interface) { _interfaces.push_back(&interface); }

    void remove(BusInterface& interface) { std::erase(_interfaces, &interface); }

    /// Releases the program's bus name and refuses further calls, because the program ends: the
    /// next start becomes the first instance. Does not block.
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

#pragma once

#include "TarnwickDirect/Application/BusInterface.h"
#include "TarnwickDirect/Status/Status.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QString>
#include <QVariantMap>

#include <functional>
#include <utility>

namespace TarnwickDirect {

/// The D-Bus interface dev.tarnwick.Tarnwick.Status: the status as properties, and the methods
/// Refresh, Show and OpenPullRequest. Main thread only.
class StatusService final
    : public QObject
    , public BusInterface {
    Q_OBJECT

public:
    using QObject::QObject;

    QString introspection() const override;

    /// The properties with their D-Bus types.
    static QVariantMap properties(const Status& status);

    /// Updates the properties and emits one change signal for those that changed.
    void setStatus(const Status& status, const QDBusConnection& bus);

    /// Also handles the object's org.freedesktop.DBus.Properties; no other interface has any.
    bool handle(const QDBusMessage& message, const QDBusConnection& bus) override;

    /// Opens a listed pull request; returns false if unknown. Without it, all are unknown.
    using Open = std::function<bool(const QString& which)>;

    void setOpen(Open open) { _open = std::move(open); }

Q_SIGNALS:
    void refreshRequested();
    void showRequested();

private:
    bool handleMethod(const QDBusMessage& message, const QDBusConnection& bus);
    bool handleProperties(const QDBusMessage& message, const QDBusConnection& bus);

    Status _status;
    Open _open;
};

}  // namespace TarnwickDirect

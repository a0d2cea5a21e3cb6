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

/// The interface dev.tarnwick.Tarnwick.Status of the program's object on the session bus: the
/// numbers of the list as properties, and the methods Refresh, Show and OpenPullRequest. Main
/// thread only.
class StatusService final
    : public QObject
    , public BusInterface {
    Q_OBJECT

public:
    using QObject::QObject;

    QString introspection() const override;

    /// The properties by their names, in the types in which they go over the bus.
    static QVariantMap properties(const Status& status);

    /// What the properties say from now on. Those that changed are announced on the bus, in one
    /// signal.
    void setStatus(const Status& status, const QDBusConnection& bus);

    /// Answers as well what reads the object's properties, of which no other interface has any.
    bool handle(const QDBusMessage& message, const QDBusConnection& bus) override;

    /// What opens a listed pull request; it tells whether there is one by that name. Until then
    /// there is none.
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

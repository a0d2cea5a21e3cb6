#pragma once

#include "Tarnwick/Persistence/FileWatcher.h"
#include "TarnwickDirect/Status/Status.h"

#include <QDBusConnection>
#include <QDBusServiceWatcher>
#include <QObject>
#include <QVariantMap>

#include <memory>
#include <optional>

namespace TarnwickDirect {

/// The numbers of the program that runs in the user's session, as it tells them on the session bus.
/// Starts no program and no bus. Nothing wakes up while nothing changes: a bus that is not there is
/// connected to when its socket comes. Main thread only.
class RunningProgram final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RunningProgram)

public:
    explicit RunningProgram(QObject* parent = nullptr);
    ~RunningProgram() override;

    /// Nothing while none runs or nothing has been heard of it yet.
    const std::optional<Status>& status() const { return _status; }

    /// Connects to the bus where there was none. For when something else shows that a program runs,
    /// which counts where the bus has no socket among the files.
    void lookForBus();

Q_SIGNALS:
    /// The numbers are other ones, or the program has come or gone.
    void changed();

private Q_SLOTS:
    void propertiesChanged(
        const QString& interface, const QVariantMap& values, const QStringList& others);
    void busLost();

private:
    bool connectToBus();
    void ask();
    void take(const QVariantMap& values);
    void forget();

    QString _busName;                                ///< Of this object's own connection.
    std::unique_ptr<QDBusServiceWatcher> _watcher;   ///< While there is a bus.
    std::unique_ptr<Tarnwick::FileWatcher> _socket;  ///< Once there was none.
    QVariantMap _values;
    std::optional<Status> _status;
};

/// What the properties say. Those that are missing or of other types count as nothing. Safe from
/// any thread.
Status statusFrom(const QVariantMap& properties);

}  // namespace TarnwickDirect

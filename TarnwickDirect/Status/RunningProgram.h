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

/// The status of the running program, read from the session bus. Starts neither a program nor a
/// bus. Does not poll: connects when the bus's socket appears. Main thread only.
class RunningProgram final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(RunningProgram)

public:
    explicit RunningProgram(QObject* parent = nullptr);
    ~RunningProgram() override;

    /// Nothing while no program runs or none has answered yet.
    const std::optional<Status>& status() const { return _status; }

    /// Connects to the bus if not connected. For buses without a socket file, call it when a
    /// program is known to run.
    void lookForBus();

Q_SIGNALS:
    /// The status changed, or the program started or ended.
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

    QString _busName;                                ///< Of this connection.
    std::unique_ptr<QDBusServiceWatcher> _watcher;   ///< While connected.
    std::unique_ptr<Tarnwick::FileWatcher> _socket;  ///< If there was no bus.
    QVariantMap _values;
    std::optional<Status> _status;
};

/// Missing values and those of wrong types get their defaults. Safe from any thread.
Status statusFrom(const QVariantMap& properties);

}  // namespace TarnwickDirect

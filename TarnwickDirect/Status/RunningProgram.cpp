#include "TarnwickDirect/Status/RunningProgram.h"

#include "TarnwickDirect/Status/BusNames.h"

#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QFile>
#include <QUrl>

namespace TarnwickDirect {
namespace {

/// The socket file of the session bus, if its address names one.
QString busSocket()
{
    const QString address = qEnvironmentVariable("DBUS_SESSION_BUS_ADDRESS");
    if (address.isEmpty()) {
        const QString folder = qEnvironmentVariable("XDG_RUNTIME_DIR");
        return folder.isEmpty() ? QString() : folder + QStringLiteral("/bus");
    }
    const QString transport = QStringLiteral("unix:");
    const QString key = QStringLiteral("path=");
    const QString first = address.section(u';', 0, 0);
    if (first.startsWith(transport)) {
        for (const QString& part : first.sliced(transport.size()).split(u',')) {
            if (part.startsWith(key)) {
                return QUrl::fromPercentEncoding(part.sliced(key.size()).toUtf8());
            }
        }
    }
    return {};
}

/// Without a known address, connecting would start a bus.
bool isBusKnown()
{
    return qEnvironmentVariableIsSet("DBUS_SESSION_BUS_ADDRESS") || QFile::exists(busSocket());
}

}  // namespace

Status statusFrom(const QVariantMap& properties)
{
    const auto number = [&](const char* name) {
        return properties.value(QString::fromLatin1(name)).toUInt();
    };
    Status status;
    status.waitingOnYou = number("WaitingOnYou");
    status.readyToMerge = number("ReadyToMerge");
    status.blocked = number("Blocked");
    status.listed = number("Listed");
    status.isStale = properties.value(QStringLiteral("IsStale")).toBool();
    const qlonglong refreshed = properties.value(QStringLiteral("LastRefreshed")).toLongLong();
    if (refreshed > 0) {
        status.lastRefreshed = PullRequestKit::Date(std::chrono::seconds(refreshed));
    }
    return status;
}

RunningProgram::RunningProgram(QObject* parent)
    : QObject(parent)
    , _busName(QStringLiteral("running-program-%1").arg(reinterpret_cast<quintptr>(this)))
{
    lookForBus();
}

RunningProgram::~RunningProgram()
{
    _watcher.reset();
    QDBusConnection::disconnectFromBus(_busName);
}

void RunningProgram::lookForBus()
{
    if (_watcher || (isBusKnown() && connectToBus())) {
        return;
    }
    if (const QString socket = busSocket(); !_socket && !socket.isEmpty()) {
        _socket = std::make_unique<Tarnwick::FileWatcher>(QFile::encodeName(socket).toStdString());
        connect(_socket.get(), &Tarnwick::FileWatcher::changed, this, &RunningProgram::lookForBus);
        lookForBus();  // It may have appeared meanwhile.
    }
}

bool RunningProgram::connectToBus()
{
    QDBusConnection bus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, _busName);
    if (!bus.isConnected()) {
        QDBusConnection::disconnectFromBus(_busName);
        return false;
    }
    bus.connect(
        QString(),
        QStringLiteral("/org/freedesktop/DBus/Local"),
        QStringLiteral("org.freedesktop.DBus.Local"),
        QStringLiteral("Disconnected"),
        this,
        SLOT(busLost()));
    bus.connect(
        BusNames::service,
        BusNames::path,
        BusNames::properties,
        QStringLiteral("PropertiesChanged"),
        this,
        SLOT(propertiesChanged(QString, QVariantMap, QStringList)));
    _watcher = std::make_unique<QDBusServiceWatcher>(
        BusNames::service, bus, QDBusServiceWatcher::WatchForOwnerChange);
    connect(
        _watcher.get(),
        &QDBusServiceWatcher::serviceOwnerChanged,
        this,
        [this](const QString&, const QString&, const QString& newOwner) {
            forget();
            if (!newOwner.isEmpty()) {
                ask();
            }
        });
    ask();
    return true;
}

/// Further changes arrive as signals.
void RunningProgram::ask()
{
    QDBusMessage message = QDBusMessage::createMethodCall(
        BusNames::service, BusNames::path, BusNames::properties, QStringLiteral("GetAll"));
    message.setAutoStartService(false);
    message << BusNames::status;
    auto* const call =
        new QDBusPendingCallWatcher(QDBusConnection(_busName).asyncCall(message), this);
    connect(call, &QDBusPendingCallWatcher::finished, this, [this, call] {
        call->deleteLater();
        const QDBusPendingReply<QVariantMap> reply(*call);
        if (!reply.isError()) {
            take(reply.value());
        }
    });
}

void RunningProgram::propertiesChanged(
    const QString& interface, const QVariantMap& values, const QStringList& /*others*/)
{
    // Changes before the first answer are ignored.
    if (interface == BusNames::status && _status) {
        QVariantMap all = _values;
        all.insert(values);
        take(all);
    }
}

void RunningProgram::take(const QVariantMap& values)
{
    _values = values;
    const Status status = statusFrom(values);
    if (_status != status) {
        _status = status;
        Q_EMIT changed();
    }
}

void RunningProgram::forget()
{
    _values.clear();
    if (_status) {
        _status.reset();
        Q_EMIT changed();
    }
}

void RunningProgram::busLost()
{
    _watcher.reset();
    QDBusConnection::disconnectFromBus(_busName);
    lookForBus();
    forget();
}

}  // namespace TarnwickDirect

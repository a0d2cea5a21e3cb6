#include "Desktop/PrivateBus.h"

#include <QFile>

#include <stdexcept>

namespace TestSupport {
namespace {

void write(const QString& path, const std::string& text)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.data(), std::ssize(text)) < 0) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
}

std::string configuration(const std::string& folder)
{
    return "<busconfig><type>session</type><listen>unix:path=" + folder + "/bus</listen>"
           + "<servicedir>" + folder + "</servicedir><policy context=\"default\">"
           + "<allow send_destination=\"*\"/><allow receive_sender=\"*\"/><allow own=\"*\"/>"
           + "</policy></busconfig>";
}

}  // namespace

PrivateBus::PrivateBus(const std::string& activatable)
{
    const QString file = _folder.filePath(QStringLiteral("bus.conf"));
    write(file, configuration(_folder.path().toStdString()));
    if (!activatable.empty()) {
        write(
            _folder.filePath(QStringLiteral("test.service")),
            "[D-BUS Service]\nName=" + activatable + "\nExec=/bin/false\n");
    }
    _daemon.setStandardErrorFile(QProcess::nullDevice());
    _daemon.start(
        QStringLiteral("dbus-daemon"),
        {QStringLiteral("--nofork"),
         QStringLiteral("--print-address"),
         QStringLiteral("--config-file=") + file});
    while (!_daemon.canReadLine()) {
        if (!_daemon.waitForReadyRead()) {
            throw std::runtime_error("dbus-daemon did not start");
        }
    }
    _address = QString::fromUtf8(_daemon.readLine()).trimmed();
}

PrivateBus::~PrivateBus()
{
    for (const QString& name : _connections) {
        QDBusConnection::disconnectFromBus(name);
    }
    stop();
}

QDBusConnection PrivateBus::connect()
{
    static int count = 0;
    _connections.append(QStringLiteral("private-bus-%1").arg(++count));
    return QDBusConnection::connectToBus(_address, _connections.back());
}

void PrivateBus::stop()
{
    if (_daemon.state() != QProcess::NotRunning) {
        _daemon.terminate();
        _daemon.waitForFinished();
    }
}

}  // namespace TestSupport

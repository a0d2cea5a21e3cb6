#include "Tarnwick/Desktop/SystemMachineEvents.h"

#include "Tarnwick/Async/Worker.h"
#include "Tarnwick/Desktop/BusCall.h"

#include <QCoro/QCoroFuture>
#include <QPointer>
#include <QTimer>

#include <chrono>
#include <utility>

namespace Tarnwick {

using namespace std::chrono_literals;

namespace {

const QString sleepService = QStringLiteral("org.freedesktop.login1");
const QString networkService = QStringLiteral("org.freedesktop.NetworkManager");

/// NetworkManager's NM_STATE_CONNECTED_SITE: connected, but perhaps not to the Internet.
constexpr quint32 connectedToSite = 60;

/// Not needed before the first frame.
constexpr auto startDelay = 2s;

constexpr std::chrono::milliseconds answerLimit = 10s;

}  // namespace

SystemMachineEvents::SystemMachineEvents()
{
    QTimer::singleShot(startDelay, this, [this] { listenToSystem(); });
}

SystemMachineEvents::SystemMachineEvents(const QDBusConnection& bus)
{
    listen(bus);
}

/// Connecting blocks, so it is done on a worker thread.
QCoro::Task<> SystemMachineEvents::listenToSystem()
{
    const QPointer<SystemMachineEvents> self(this);
    auto connecting = onWorker([] { return QDBusConnection::systemBus().isConnected(); });
    const bool isConnected = co_await connecting;
    if (self && isConnected) {
        listen(QDBusConnection::systemBus());
    }
}

/// Connects without a sender's name, which Qt would look up in a blocking call.
void SystemMachineEvents::listen(const QDBusConnection& bus)
{
    _bus = bus;
    _bus->connect(
        {},
        QStringLiteral("/org/freedesktop/login1"),
        QStringLiteral("org.freedesktop.login1.Manager"),
        QStringLiteral("PrepareForSleep"),
        this,
        SLOT(prepareForSleep(bool, QDBusMessage)));
    _bus->connect(
        {},
        QStringLiteral("/org/freedesktop/NetworkManager"),
        networkService,
        QStringLiteral("StateChanged"),
        this,
        SLOT(networkStateChanged(quint32, QDBusMessage)));
}

void SystemMachineEvents::prepareForSleep(bool isFallingAsleep, const QDBusMessage& signal)
{
    if (!isFallingAsleep) {
        emitIfSentBy(sleepService, signal, &MachineEvents::woke);
    }
}

void SystemMachineEvents::networkStateChanged(quint32 state, const QDBusMessage& signal)
{
    if (state >= connectedToSite) {
        emitIfSentBy(networkService, signal, &MachineEvents::networkReturned);
    }
}

/// Any program can send such a signal, and each one costs requests, so the sender is checked.
QCoro::Task<> SystemMachineEvents::emitIfSentBy(
    QString service, QDBusMessage signal, void (MachineEvents::*happened)())
{
    if (!_bus) {
        co_return;
    }
    const QPointer<SystemMachineEvents> self(this);
    const QDBusMessage question = busMethod(QStringLiteral("GetNameOwner"), {service});
    const QFuture<QDBusMessage> asking = callBus(*_bus, question, answerLimit);
    const QDBusMessage owner = co_await asking;
    const bool isOwner = owner.type() == QDBusMessage::ReplyMessage
                         && owner.arguments().value(0).toString() == signal.service();
    if (self && isOwner) {
        Q_EMIT(this->*happened)();
    }
}

}  // namespace Tarnwick

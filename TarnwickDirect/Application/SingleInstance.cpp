#include "TarnwickDirect/Application/SingleInstance.h"

#include "Tarnwick/Desktop/BusCall.h"
#include "TarnwickDirect/Status/BusNames.h"

#include <QDBusError>
#include <QDBusMessage>

#include <optional>
#include <stdexcept>

namespace TarnwickDirect {
namespace {

constexpr int busLimit = 2'000;       ///< Milliseconds for the bus itself.
constexpr int instanceLimit = 5'000;  ///< Milliseconds for another instance, which may be starting.

/// The name's owner may disappear this often before it is called.
constexpr int attempts = 5;

enum class Claim {
    granted,
    taken,
    impossible,
};

QDBusMessage nameCall(const char* member)
{
    return Tarnwick::busMethod(QString::fromLatin1(member), {BusNames::service});
}

Claim claimName(const QDBusConnection& bus)
{
    constexpr quint32 doNotQueue = 4;
    constexpr quint32 isOwner = 1;
    constexpr quint32 isOwnerAlready = 4;
    const QDBusMessage reply =
        bus.call(nameCall("RequestName") << doNotQueue, QDBus::Block, busLimit);
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
        return Claim::impossible;
    }
    const quint32 answer = reply.arguments().constFirst().toUInt();
    return answer == isOwner || answer == isOwnerAlready ? Claim::granted : Claim::taken;
}

QDBusMessage messageFor(ShowPanel::Manner manner, const PlatformData& platformData)
{
    const auto call = [](const char* member) {
        QDBusMessage message = QDBusMessage::createMethodCall(
            BusNames::service, BusNames::path, BusNames::application, QString::fromLatin1(member));
        message.setAutoStartService(false);
        return message;
    };
    if (manner == ShowPanel::Manner::toggle) {
        return call("ActivateAction")
               << QStringLiteral("toggle") << QVariantList() << platformData.toMap();
    }
    return call("Activate") << platformData.toMap();
}

/// Whether the name's owner took the message; nothing if there is no owner any more.
std::optional<bool> deliver(const QDBusConnection& bus, const QDBusMessage& message)
{
    const QDBusMessage reply = bus.call(message, QDBus::Block, instanceLimit);
    if (reply.type() == QDBusMessage::ReplyMessage) {
        return true;
    }
    switch (QDBusError(reply).type()) {
    case QDBusError::ServiceUnknown:
    case QDBusError::UnknownObject:
        return std::nullopt;
    default:
        break;
    }
    // "NoReply" means either that the owner ended or a timeout. The name is free only if the owner
    // ended.
    return claimName(bus) == Claim::granted ? std::nullopt : std::optional<bool>(false);
}

}  // namespace

Start startOrForward(
    const QDBusConnection& bus, ShowPanel::Manner manner, const PlatformData& platformData)
{
    if (!bus.isConnected()) {
        return Start::first;
    }
    for (int attempt = 0; attempt < attempts; ++attempt) {
        if (claimName(bus) != Claim::taken) {
            return Start::first;
        }
        if (manner == ShowPanel::Manner::background || manner == ShowPanel::Manner::service) {
            return Start::forwarded;
        }
        const auto isDelivered = deliver(bus, messageFor(manner, platformData));
        if (isDelivered && *isDelivered) {
            return Start::forwarded;
        }
        if (isDelivered) {
            break;
        }
    }
    throw std::runtime_error("Tarnwick is already running but does not respond.");
}

void giveUpName(const QDBusConnection& bus)
{
    bus.send(nameCall("ReleaseName"));
}

}  // namespace TarnwickDirect

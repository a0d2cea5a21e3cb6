#include "TarnwickDirect/Application/BusInterface.h"

#include <QDBusError>

namespace TarnwickDirect {

bool hasSignature(const QDBusMessage& call, const QDBusConnection& bus, const char* signature)
{
    if (call.signature() == QLatin1String(signature)) {
        return true;
    }
    bus.send(call.createErrorReply(
        QDBusError::InvalidArgs,
        QStringLiteral("%1 expects arguments of the types \"%2\".")
            .arg(call.member(), QLatin1String(signature))));
    return false;
}

}  // namespace TarnwickDirect

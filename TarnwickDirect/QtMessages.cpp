#include "TarnwickDirect/QtMessages.h"

#include <QString>
#include <QtGlobal>

namespace TarnwickDirect {
namespace {

QtMessageHandler usualHandler = nullptr;

void handle(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (!message.startsWith(QLatin1String("Detected locale"))) {
        usualHandler(type, context, message);
    }
}

}  // namespace

void leaveOutLocaleMessage()
{
    usualHandler = qInstallMessageHandler(handle);
}

}  // namespace TarnwickDirect

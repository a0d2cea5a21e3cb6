#include "TarnwickDirect/Application/Display.h"

#include <QFileInfo>
#include <QString>

#include <xcb/xcb.h>

namespace TarnwickDirect {
namespace {

bool hasX11()
{
    if (qEnvironmentVariableIsEmpty("DISPLAY")) {
        return false;
    }
    xcb_connection_t* const server = xcb_connect(nullptr, nullptr);
    const bool isThere = xcb_connection_has_error(server) == 0;
    xcb_disconnect(server);
    return isThere;
}

bool hasWayland()
{
    const QString name = qEnvironmentVariable("WAYLAND_DISPLAY");
    const QString socket = name.startsWith(QLatin1Char('/'))
                               ? name
                               : qEnvironmentVariable("XDG_RUNTIME_DIR") + QLatin1Char('/') + name;
    return !name.isEmpty() && QFileInfo::exists(socket);
}

}  // namespace

bool hasDisplay()
{
    // A platform set by the user is used as it is, even offscreen.
    return !qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") || hasWayland() || hasX11();
}

}  // namespace TarnwickDirect

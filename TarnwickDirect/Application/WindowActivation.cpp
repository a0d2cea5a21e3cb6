#include "TarnwickDirect/Application/WindowActivation.h"

#include "TarnwickDirect/X11/X11.h"

#include <QWidget>

namespace TarnwickDirect {
namespace {

/// Qt takes the token from the environment when it asks the compositor. Qt 6.4 has no other way to
/// pass it.
void passOn(const QString& activationToken)
{
    if (!activationToken.isEmpty()) {
        qputenv("XDG_ACTIVATION_TOKEN", activationToken.toUtf8());
    }
}

}  // namespace

void bringToFront(QWidget& window, const PlatformData& platformData)
{
    passOn(platformData.activationToken);
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
    X11::activate(window.winId(), platformData.startupTime());
    X11::endStartup(platformData.startupId.toUtf8());
}

}  // namespace TarnwickDirect

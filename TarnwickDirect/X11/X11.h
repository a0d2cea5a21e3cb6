#pragma once

#include <QByteArray>
#include <QtGui/qwindowdefs.h>

#include <optional>

struct xcb_connection_t;

namespace TarnwickDirect {

/// What Qt does not say about the X server or ask of it. Every function does nothing and finds
/// nothing where the program's windows are not X11's. The questions wait for the server's answer,
/// which is on its way at once. Main thread only.
namespace X11 {

/// Qt's connection, or null.
xcb_connection_t* connection();

/// Whether a client can place its own windows here.
bool isInUse();

/// The selection whose owner is the tray, or the compositing manager, of the program's screen.
QByteArray traySelection();
QByteArray compositorSelection();

bool hasOwner(const QByteArray& selection);

/// The atom of this name, made if there is none.
std::optional<quint32> atom(const QByteArray& name);

/// What an event says of a window's focus.
enum class FocusChange {
    none,
    came,
    left,
    /// Somebody reads the keyboard for a while, such as a window manager that resizes the window.
    borrowed,
};

/// Of an event as `QWidget::nativeEvent` gets it.
FocusChange focusChange(const QByteArray& type, const void* message);

/// Whether one of the program's windows has the focus, borrowed or not.
bool hasFocus();

/// Asks compositing managers to draw no shadow around the window, as those do that draw their own.
void declineShadow(WId window);

/// Has the window manager bring the window to the front and give it the focus, as the user wants
/// it at this time (in the server's milliseconds, 0 for now).
void activate(WId window, quint32 time);

/// Tells the desktop that the start with this id is over, so that it shows no more that it waits.
void endStartup(const QByteArray& startupId);

}  // namespace X11

}  // namespace TarnwickDirect

#pragma once

#include <QByteArray>
#include <QtGui/qwindowdefs.h>

#include <optional>

struct xcb_connection_t;

namespace TarnwickDirect {

/// Functions of the X server that Qt lacks. All do nothing if the program's windows are not on X11.
/// Queries wait for the server's reply. Main thread only.
namespace X11 {

/// Qt's connection, or null.
xcb_connection_t* connection();

/// Whether a client can place its own windows here.
bool isInUse();

/// The selections that the tray and the compositing manager of the program's screen own.
QByteArray traySelection();
QByteArray compositorSelection();

bool hasOwner(const QByteArray& selection);

/// The atom of this name, created if necessary.
std::optional<quint32> atom(const QByteArray& name);

enum class FocusChange {
    none,
    came,
    left,
    /// The keyboard is grabbed, for example by a window manager that resizes the window.
    borrowed,
};

/// For an event from `QWidget::nativeEvent`.
FocusChange focusChange(const QByteArray& type, const void* message);

/// Whether one of the program's windows has the focus, even if the keyboard is grabbed.
bool hasFocus();

/// Asks compositing managers to draw no shadow around the window.
void declineShadow(WId window);

/// Asks the window manager to raise and focus the window, as the user requested at this time (the
/// server's, in milliseconds; 0 for now).
void activate(WId window, quint32 time);

/// Ends the desktop's startup feedback for this id.
void endStartup(const QByteArray& startupId);

}  // namespace X11

}  // namespace TarnwickDirect

#include "TarnwickDirect/X11/TrayAnnouncement.h"

#include "TarnwickDirect/X11/X11.h"

#include <QCoreApplication>

#include <utility>

#include <xcb/xcb.h>

namespace TarnwickDirect {
namespace {

/// Set in the type of events sent by clients.
constexpr std::uint8_t sentFlag = 0x80;

}  // namespace

TrayAnnouncement::TrayAnnouncement(std::function<void()> announced)
    : _announced(std::move(announced))
    , _manager(X11::atom("MANAGER"))
    , _selection(X11::atom(X11::traySelection()))
{
    // Qt already selects the root window's events for its own tray icons.
    QCoreApplication::instance()->installNativeEventFilter(this);
}

TrayAnnouncement::~TrayAnnouncement()
{
    QCoreApplication::instance()->removeNativeEventFilter(this);
}

bool TrayAnnouncement::nativeEventFilter(const QByteArray& type, void* message, qintptr* /*result*/)
{
    if (type != "xcb_generic_event_t") {
        return false;
    }
    const auto* const event = static_cast<const xcb_generic_event_t*>(message);
    if ((event->response_type & ~sentFlag) != XCB_CLIENT_MESSAGE) {
        return false;
    }
    const auto* const announcement = reinterpret_cast<const xcb_client_message_event_t*>(event);
    if (_manager && announcement->type == *_manager && _selection
        && announcement->data.data32[1] == *_selection) {
        _announced();
    }
    return false;
}

}  // namespace TarnwickDirect

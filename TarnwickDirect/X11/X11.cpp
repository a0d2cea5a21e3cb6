#include "TarnwickDirect/X11/X11.h"

#include <QGuiApplication>
#include <QHash>
#include <QWindow>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <memory>

#include <xcb/xcb.h>

namespace TarnwickDirect::X11 {
namespace {

struct Free {
    void operator()(void* memory) const { std::free(memory); }  // NOLINT: xcb's own allocator.
};

template<typename Reply>
using Answer = std::unique_ptr<Reply, Free>;

int screenNumber()
{
    char* host = nullptr;
    int display = 0;
    int screen = 0;
    if (xcb_parse_display(nullptr, &host, &display, &screen) != 0) {
        std::free(host);  // NOLINT: xcb's own allocator.
    }
    return screen;
}

xcb_window_t rootWindow(xcb_connection_t* server)
{
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(server));
    for (int left = screenNumber(); left > 0 && screens.rem > 1; --left) {
        xcb_screen_next(&screens);
    }
    return screens.data->root;
}

QByteArray ofScreen(const char* selection)
{
    return selection + QByteArray::number(screenNumber());
}

/// Escapes quotes and backslashes for startup notification messages.
QByteArray quoted(const QByteArray& text)
{
    QByteArray quoted;
    for (const char character : text) {
        if (character == '"' || character == '\\' || character == ' ') {
            quoted += '\\';
        }
        quoted += character;
    }
    return quoted;
}

}  // namespace

xcb_connection_t* connection()
{
    const auto* const native = qGuiApp == nullptr
                                   ? nullptr
                                   : qGuiApp->nativeInterface<QNativeInterface::QX11Application>();
    return native == nullptr ? nullptr : native->connection();
}

bool isInUse()
{
    return connection() != nullptr;
}

QByteArray traySelection()
{
    return ofScreen("_NET_SYSTEM_TRAY_S");
}

QByteArray compositorSelection()
{
    return ofScreen("_NET_WM_CM_S");
}

std::optional<quint32> atom(const QByteArray& name)
{
    xcb_connection_t* const server = connection();
    if (server == nullptr) {
        return std::nullopt;
    }
    // Cached, because atoms never change and each lookup waits for the server.
    static QHash<QByteArray, quint32> known;
    if (const auto found = known.constFind(name); found != known.constEnd()) {
        return *found;
    }
    const auto cookie =
        xcb_intern_atom(server, 0, static_cast<std::uint16_t>(name.size()), name.constData());
    const Answer<xcb_intern_atom_reply_t> answer(xcb_intern_atom_reply(server, cookie, nullptr));
    if (!answer) {
        return std::nullopt;
    }
    return *known.insert(name, answer->atom);
}

bool hasOwner(const QByteArray& selection)
{
    xcb_connection_t* const server = connection();
    const auto name = atom(selection);
    if (server == nullptr || !name) {
        return false;
    }
    const auto cookie = xcb_get_selection_owner(server, *name);
    const Answer<xcb_get_selection_owner_reply_t> answer(
        xcb_get_selection_owner_reply(server, cookie, nullptr));
    return answer && answer->owner != XCB_WINDOW_NONE;
}

FocusChange focusChange(const QByteArray& type, const void* message)
{
    if (type != "xcb_generic_event_t") {
        return FocusChange::none;
    }
    const auto* const event = static_cast<const xcb_focus_out_event_t*>(message);
    switch (event->response_type & ~0x80) {
    case XCB_FOCUS_IN:
        return FocusChange::came;
    case XCB_FOCUS_OUT:
        // Caused by the pointer only.
        if (event->detail == XCB_NOTIFY_DETAIL_POINTER) {
            return FocusChange::none;
        }
        return event->mode == XCB_NOTIFY_MODE_GRAB ? FocusChange::borrowed : FocusChange::left;
    default:
        return FocusChange::none;
    }
}

bool hasFocus()
{
    xcb_connection_t* const server = connection();
    if (server == nullptr) {
        return false;
    }
    const Answer<xcb_get_input_focus_reply_t> answer(
        xcb_get_input_focus_reply(server, xcb_get_input_focus(server), nullptr));
    const QWindowList windows = QGuiApplication::topLevelWindows();
    return answer && std::ranges::any_of(windows, [&answer](QWindow* window) {
               return window->handle() != nullptr && window->winId() == answer->focus;
           });
}

void declineShadow(WId window)
{
    xcb_connection_t* const server = connection();
    const auto name = atom("_GTK_FRAME_EXTENTS");
    if (server == nullptr || !name) {
        return;
    }
    // A window with its own frame, even of zero width, is left alone.
    constexpr quint32 noExtents[] = {0, 0, 0, 0};
    xcb_change_property(
        server,
        XCB_PROP_MODE_REPLACE,
        static_cast<xcb_window_t>(window),
        *name,
        XCB_ATOM_CARDINAL,
        32,
        std::size(noExtents),
        noExtents);
}

void activate(WId window, quint32 time)
{
    xcb_connection_t* const server = connection();
    const auto type = atom("_NET_ACTIVE_WINDOW");
    if (server == nullptr || !type) {
        return;
    }
    // Window managers compare an application's request with the user's activity elsewhere, and Qt
    // only knows this program's last input. A pager's request counts as the user's.
    constexpr quint32 fromPager = 2;
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = static_cast<xcb_window_t>(window);
    event.type = *type;
    event.data.data32[0] = fromPager;
    event.data.data32[1] = time;
    xcb_send_event(
        server,
        0,
        rootWindow(server),
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
        reinterpret_cast<const char*>(&event));
    xcb_flush(server);
}

void endStartup(const QByteArray& startupId)
{
    if (startupId.isEmpty()) {
        return;
    }
    xcb_connection_t* const server = connection();
    const auto begin = atom("_NET_STARTUP_INFO_BEGIN");
    const auto more = atom("_NET_STARTUP_INFO");
    if (server == nullptr || !begin || !more) {
        return;
    }
    const xcb_window_t root = rootWindow(server);
    const xcb_window_t sender = xcb_generate_id(server);
    xcb_create_window(
        server, 0, sender, root, -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY, 0, 0, nullptr);
    // The text is sent with its terminating zero in pieces of 20 bytes.
    QByteArray text = "remove: ID=" + quoted(startupId);
    text.append('\0');
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 8;
    event.window = sender;
    event.type = *begin;
    constexpr qsizetype pieceSize = sizeof event.data.data8;
    for (qsizetype sent = 0; sent < text.size(); sent += pieceSize) {
        const QByteArray piece = text.mid(sent, pieceSize).leftJustified(pieceSize, '\0');
        std::memcpy(event.data.data8, piece.constData(), sizeof event.data.data8);
        xcb_send_event(
            server, 0, root, XCB_EVENT_MASK_PROPERTY_CHANGE, reinterpret_cast<const char*>(&event));
        event.type = *more;
    }
    xcb_destroy_window(server, sender);
    xcb_flush(server);
}

}  // namespace TarnwickDirect::X11

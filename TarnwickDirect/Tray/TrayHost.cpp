#include "TarnwickDirect/Tray/TrayHost.h"

#include "TarnwickDirect/X11/X11.h"

namespace TarnwickDirect {
namespace {

using namespace std::chrono_literals;

/// A tray on X11 usually supports status notifier items too, which are preferred, but announces
/// them a little later.
constexpr std::chrono::milliseconds graceForItems = 500ms;

}  // namespace

TrayHost::TrayHost(const QDBusConnection& bus, QObject* parent)
    : QObject(parent)
    , _items(bus)
    , _announcement([this] { _grace.start(); })
{
    _grace.setSingleShot(true);
    _grace.setInterval(graceForItems);
    connect(&_grace, &QTimer::timeout, this, &TrayHost::lookForX11Tray);
    connect(&_items, &StatusNotifierHost::changed, this, &TrayHost::changed);
    connect(&_items, &StatusNotifierHost::answered, this, [this] {
        lookForX11Tray();
        Q_EMIT settled();
    });
}

bool TrayHost::isPresent() const
{
    return _items.isPresent() || (_hasX11Tray && X11::hasOwner(X11::traySelection()));
}

void TrayHost::lookForX11Tray()
{
    if (!_items.isPresent() && !_hasX11Tray && X11::hasOwner(X11::traySelection())) {
        _hasX11Tray = true;
        Q_EMIT changed();
    }
}

}  // namespace TarnwickDirect

#pragma once

#include "TarnwickDirect/Tray/StatusNotifierHost.h"
#include "TarnwickDirect/X11/TrayAnnouncement.h"

#include <QTimer>

namespace TarnwickDirect {

/// Whether there is a tray of either kind. Qt chooses the kind for the whole run when its tray icon
/// is first used, even for a query, so that must wait for `settled`. Main thread only.
class TrayHost final : public QObject {
    Q_OBJECT

public:
    explicit TrayHost(const QDBusConnection& bus, QObject* parent = nullptr);

    /// Looks for a tray; `settled` follows, possibly before this returns.
    void start() { _items.start(); }

    bool isPresent() const;

Q_SIGNALS:
    /// The initial state is known.
    void settled();
    /// A tray came or went. Not emitted when an X11 tray goes; only `isPresent` notices that.
    void changed();

private:
    void lookForX11Tray();

    StatusNotifierHost _items;
    TrayAnnouncement _announcement;
    QTimer _grace;  ///< Runs once after an announcement on X11.
    bool _hasX11Tray = false;
};

}  // namespace TarnwickDirect

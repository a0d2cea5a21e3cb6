#pragma once

#include "TarnwickDirect/Tray/StatusNotifierHost.h"
#include "TarnwickDirect/X11/TrayAnnouncement.h"

#include <QTimer>

namespace TarnwickDirect {

/// Whether there is a tray to put an icon into, of either kind. Qt settles on one kind for the
/// whole run the first time that its tray icon is touched, even to ask whether there is a tray, so
/// that must wait until this says so. Main thread only.
class TrayHost final : public QObject {
    Q_OBJECT

public:
    explicit TrayHost(const QDBusConnection& bus, QObject* parent = nullptr);

    /// Looks for a tray; `settled` follows, perhaps before this returns.
    void start();

    bool isPresent() const;

Q_SIGNALS:
    /// What was there from the beginning is known.
    void settled();
    /// To be told again each time a tray comes or goes; not of a tray of X11 that goes, which
    /// `isPresent` alone notices.
    void changed();

private:
    void lookForX11Tray();

    StatusNotifierHost _items;
    TrayAnnouncement _announcement;
    QTimer _grace;  ///< Runs once after an announcement on X11.
    bool _hasX11Tray = false;
};

}  // namespace TarnwickDirect

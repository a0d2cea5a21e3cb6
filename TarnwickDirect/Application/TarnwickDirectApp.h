#pragma once

#include "Tarnwick/Interface/Look/Appearance.h"
#include "Tarnwick/Interface/Look/DesktopWishes.h"
#include "Tarnwick/PullRequestMenuModel.h"
#include "Tarnwick/PullRequestMenuView.h"
#include "TarnwickDirect/Application/ApplicationService.h"
#include "TarnwickDirect/Application/PanelWindow.h"
#include "TarnwickDirect/CommandLine/Arguments.h"
#include "TarnwickDirect/Tray/TrayHost.h"
#include "TarnwickDirect/Tray/TrayItem.h"

#include <QDBusConnection>

#include <memory>

namespace TarnwickDirect {

/// The application record: the model, the panel on it, the icon in the tray and the object on the
/// bus, and how they act on each other. Ending it ends what runs, child processes included. Main
/// thread only.
class TarnwickDirectApp final : public QObject {
    Q_OBJECT

public:
    /// Nothing is in sight yet, and the service of which others may ask waits. Requires: `service`
    /// lives longer.
    TarnwickDirectApp(
        Tarnwick::PullRequestMenuModel::Collaborators collaborators,
        const QDBusConnection& bus,
        ApplicationService& service);
    ~TarnwickDirectApp() override;

    /// Looks for a tray and then does what the user started the program for.
    void start(ShowPanel::Manner manner, const PlatformData& platformData);

    /// Asks everything that runs to stop, child processes included, and waits for nothing.
    void stop() { _model.stop(); }

    PanelWindow& window() { return _window; }

Q_SIGNALS:
    void quitRequested();

private:
    void connectAppearance();
    void connectPanel();
    void connectMemory();
    void connectService(ApplicationService& service);
    void trayChanged();
    void makeTrayItem();
    void trayClicked();
    void toggle(std::optional<QPoint> click, const PlatformData& platformData);
    void reload();
    void panelClosed();

    std::shared_ptr<Tarnwick::DefaultsStore> _defaults;
    Tarnwick::PullRequestMenuModel _model;
    Tarnwick::Appearance _appearance;
    Tarnwick::DesktopWishes _wishes;
    Tarnwick::PullRequestMenuView* _view = nullptr;  ///< The window's.
    PanelWindow _window;
    TrayHost _trayHost;
    std::unique_ptr<TrayItem> _trayItem;
    bool _staysInBackground = false;
};

}  // namespace TarnwickDirect

#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"
#include "Tarnwick/Interface/Style/DesktopPreferences.h"
#include "Tarnwick/PullRequestMenuModel.h"
#include "Tarnwick/PullRequestMenuView.h"
#include "TarnwickDirect/Application/ApplicationService.h"
#include "TarnwickDirect/Application/PanelWindow.h"
#include "TarnwickDirect/Application/TarnwickMenuContent.h"
#include "TarnwickDirect/CommandLine/Arguments.h"
#include "TarnwickDirect/Search/GnomeSearch.h"
#include "TarnwickDirect/Search/KRunnerSearch.h"
#include "TarnwickDirect/Status/StatusFeed.h"
#include "TarnwickDirect/Status/Trouble.h"
#include "TarnwickDirect/Tray/TrayHost.h"
#include "TarnwickDirect/Tray/TrayItem.h"
#include "TarnwickDirect/UpdateManager.h"

#include <QDBusConnection>
#include <QTimer>

#include <functional>
#include <memory>

namespace TarnwickDirect {

/// The application: model, panel, tray icon, bus object and update manager, connected to each
/// other. Destruction cancels all work, including child processes. Main thread only.
class TarnwickDirectApp final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TarnwickDirectApp)

public:
    /// Shows nothing yet, and keeps calls of the service waiting. `makeUpdater` is empty without an
    /// updater. Requires: `service` outlives it.
    TarnwickDirectApp(
        Tarnwick::PullRequestMenuModel::Collaborators collaborators,
        const QDBusConnection& bus,
        ApplicationService& service,
        const MakeUpdater& makeUpdater);
    ~TarnwickDirectApp() override;

    /// Looks for a tray, then does what the user asked for.
    void start(ShowPanel::Manner manner, const PlatformData& platformData);

    /// Cancels all work, including child processes, without waiting.
    void stop();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    void quitRequested();

private:
    void connectAppearance();
    void connectPanel();
    void connectMemory();
    void connectService(ApplicationService& service);
    void connectStatus(StatusService& service);
    SearchSource searchSource();
    void answer();
    void wakeUp();
    void show(const PlatformData& platformData);
    void presentWhenSettled(const PlatformData& platformData);
    bool openListed(const std::function<bool(const PullRequestKit::PullRequestRow&)>& isMeant);
    void connectUpdates(ApplicationService& service);
    UpdaterHost updaterHost();
    TarnwickMenuContent menuContent();
    void checkForUpdates(const PlatformData& platformData);
    void trayChanged();
    void makeTrayItem();
    void trayClicked();
    void toggle(std::optional<QPoint> click, const PlatformData& platformData);
    void reload();
    void panelClosed();
    void castShadow(QObject* shown);
    bool explainsClosing();
    bool outlivesItsWindow() const;

    QDBusConnection _bus;
    std::shared_ptr<Tarnwick::DefaultsStore> _defaults;
    std::shared_ptr<Tarnwick::Clock> _clock;
    Tarnwick::PullRequestMenuModel _model;
    Trouble _trouble;
    StatusFeed _status;
    Tarnwick::Appearance& _appearance;
    Tarnwick::DesktopPreferences _preferences;
    PlatformData _checkRequest;  ///< Of the last requested check.
    UpdateManager _updateManager;
    Tarnwick::PullRequestMenuView* _view = nullptr;  ///< Owned by the window.
    PanelWindow _window;
    TrayHost _trayHost;
    std::unique_ptr<TrayItem> _trayItem;
    ApplicationService& _service;
    GnomeSearch _gnomeSearch;
    KRunnerSearch _krunnerSearch;
    QTimer _unneeded;  ///< Ends a program that only answers calls.
    bool _isAnswering = false;
    bool _staysInBackground = false;
    bool _isEnding = false;
};

}  // namespace TarnwickDirect

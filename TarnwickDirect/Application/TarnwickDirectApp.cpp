#include "TarnwickDirect/Application/TarnwickDirectApp.h"

#include "Tarnwick/Interface/Controls/Menu.h"
#include "Tarnwick/Interface/Panel/AccessibleParts.h"
#include "Tarnwick/Interface/Style/ApplicationStyle.h"
#include "Tarnwick/Interface/Style/MenuItems.h"
#include "TarnwickDirect/Application/ExitGuard.h"
#include "TarnwickDirect/Application/PanelSize.h"
#include "TarnwickDirect/Application/TarnwickApplication.h"
#include "TarnwickDirect/Application/WindowActivation.h"
#include "TarnwickDirect/Application/WindowShadow.h"
#include "TarnwickDirect/Memory.h"
#include "TarnwickDirect/X11/X11.h"

#include <QCoreApplication>
#include <QCursor>
#include <QEvent>
#include <QGuiApplication>
#include <QTimer>

#include <algorithm>
#include <span>
#include <utility>

namespace TarnwickDirect {

using PullRequestKit::PullRequestRow;
using Tarnwick::PullRequestMenuModel;
using Tarnwick::PullRequestMenuView;

namespace {

/// Stored: do not rename.
constexpr std::string_view closingExplainedKey = "window.closingExplained";

/// The idle time after which a program started by the bus ends.
constexpr std::chrono::seconds answersFor{30};

/// Registers the fonts before the first widget is created.
PullRequestMenuModel::Collaborators initialized(PullRequestMenuModel::Collaborators collaborators)
{
    TarnwickApplication::initialize();
    return collaborators;
}

/// Likewise for the style and the accessible interfaces, which Qt 6.8 caches when a widget is
/// created.
Tarnwick::Appearance& styled()
{
    Tarnwick::installAccessibleParts();
    return Tarnwick::setApplicationStyle();
}

std::string nameOf(const PullRequestKit::PullRequestID& id)
{
    return id.repository + "#" + std::to_string(id.number);
}

/// On Wayland the compositor places windows.
bool canPlaceWindows()
{
    return X11::isInUse();
}

}  // namespace

TarnwickDirectApp::TarnwickDirectApp(
    PullRequestMenuModel::Collaborators collaborators,
    const QDBusConnection& bus,
    ApplicationService& service,
    const MakeUpdater& makeUpdater)
    : _bus(bus)
    , _defaults(collaborators.defaults)
    , _clock(collaborators.clock)
    , _model(initialized(std::move(collaborators)))
    , _trouble(_model)
    , _status(_model, _trouble)
    , _appearance(styled())
    , _preferences(_appearance, bus)
    , _updateManager([this, &makeUpdater](UpdaterDelegate& delegate) {
        return makeUpdater ? makeUpdater(updaterHost(), delegate) : nullptr;
    })
    , _view(menuContent().makeView(_model))
    , _window(
          _view, [view = _view] { return view->keepsOpen(); }, _appearance)
    , _trayHost(bus)
    , _service(service)
    , _gnomeSearch(searchSource())
    , _krunnerSearch(searchSource())
{
    _window.setPreferredSize(PanelSize::read(*_defaults, _appearance.textScale()));
    connectAppearance();
    connectPanel();
    connectMemory();
    connectService(service);
    connectUpdates(service);
    service.add(_gnomeSearch);
    service.add(_krunnerSearch);
    connect(this, &TarnwickDirectApp::quitRequested, this, [this] { _service.leave(_bus); });
    _unneeded.setSingleShot(true);
    _unneeded.setInterval(answersFor);
    connect(&_unneeded, &QTimer::timeout, this, &TarnwickDirectApp::quitRequested);
    connect(&_trayHost, &TrayHost::changed, this, &TarnwickDirectApp::trayChanged);
}

TarnwickDirectApp::~TarnwickDirectApp()
{
    _service.remove(_gnomeSearch);
    _service.remove(_krunnerSearch);
    _service.status().setOpen({});
    // Signals from the window's destruction must not arrive here.
    _window.disconnect(this);
    _trayHost.disconnect(this);
    _updateManager.disconnect(this);
}

void TarnwickDirectApp::stop()
{
    _service.leave(_bus);
    _model.stop();
    _updateManager.stop();
}

void TarnwickDirectApp::connectAppearance()
{
    const auto follow = [this] { _appearance.setDark(_model.settings().darkMode); };
    connect(&_model, &PullRequestMenuModel::darkModeChanged, this, follow);
    follow();
}

void TarnwickDirectApp::connectPanel()
{
    connect(_view, &PullRequestMenuView::closeRequested, &_window, &PanelWindow::leave);
    connect(_view, &PullRequestMenuView::closingConfirmed, &_window, &QWidget::close);
    connect(_view, &PullRequestMenuView::quitRequested, this, &TarnwickDirectApp::quitRequested);
    connect(_view, &PullRequestMenuView::attentionRequested, this, [this] {
        // The window made room for something that failed to open.
        if (!_window.isInSight()) {
            _window.present(std::nullopt, {});
        }
    });
    connect(&_window, &PanelWindow::shown, _view, &PullRequestMenuView::panelShown);
    connect(&_window, &PanelWindow::painted, &_model, &PullRequestMenuModel::menuOpened);
    connect(&_window, &PanelWindow::hidden, _view, &PullRequestMenuView::panelHidden);
    connect(&_window, &PanelWindow::quitRequested, this, &TarnwickDirectApp::quitRequested);
    connect(&_window, &PanelWindow::closed, this, &TarnwickDirectApp::panelClosed);
    connect(
        &_window,
        &PanelWindow::painted,
        qApp,
        &TarnwickApplication::setWindowIcon,
        Qt::SingleShotConnection);
    _window.setLeaving(PanelWindow::Leaving::minimize);
    _window.setKeepsFromClosing([this] { return explainsClosing(); });
    qApp->installEventFilter(this);
    connect(&_window, &PanelWindow::steppedAside, this, [this] {
        // Without an icon the user could not reach the program.
        if (!_trayHost.isPresent()) {
            _window.showMinimized();
        }
    });
    connect(&_window, &PanelWindow::preferredSizeChanged, this, [this] {
        PanelSize::write(*_defaults, _window.preferredSize());
    });
    connect(&_model, &PullRequestMenuModel::settingsReadAgain, this, [this] {
        _window.setPreferredSize(PanelSize::read(*_defaults, _appearance.textScale()));
    });
}

/// A refresh uses many times the memory that its result needs.
void TarnwickDirectApp::connectMemory()
{
    // By then the snapshot is on disk, too.
    constexpr std::chrono::seconds afterRefresh{1};
    auto* const timer = new QTimer(this);
    timer->setSingleShot(true);
    timer->setInterval(afterRefresh);
    connect(timer, &QTimer::timeout, this, &Memory::giveBack);
    connect(&_model, &PullRequestMenuModel::isRefreshingChanged, timer, [this, timer] {
        if (_model.isRefreshing()) {
            timer->stop();
        } else {
            timer->start();
        }
    });
}

void TarnwickDirectApp::connectService(ApplicationService& service)
{
    connect(&service, &ApplicationService::activateRequested, this, &TarnwickDirectApp::show);
    connect(
        &service,
        &ApplicationService::toggleRequested,
        this,
        [this](const PlatformData& platformData) { toggle(std::nullopt, platformData); });
    connect(&service, &ApplicationService::reloadRequested, this, &TarnwickDirectApp::reload);
    connect(&service, &ApplicationService::quitRequested, this, &TarnwickDirectApp::quitRequested);
    connectStatus(service.status());
}

void TarnwickDirectApp::connectStatus(StatusService& service)
{
    connect(&service, &StatusService::refreshRequested, this, &TarnwickDirectApp::reload);
    connect(&service, &StatusService::showRequested, this, [this] { show({}); });
    service.setOpen([this](const QString& which) {
        return openListed([wanted = which.toStdString()](const PullRequestRow& row) {
            return wanted == row.pullRequest.url.text || wanted == nameOf(row.id());
        });
    });
    const auto publish = [this, &service] { service.setStatus(_status.status(), _bus); };
    connect(&_status, &StatusFeed::changed, &service, publish);
    publish();
}

SearchSource TarnwickDirectApp::searchSource()
{
    return {
        .rows =
            [this] {
                answer();
                return std::span(_model.rows());
            },
        .open =
            [this](const QString& key) {
                openListed([wanted = key.toStdString()](const PullRequestRow& row) {
                    return row.id().storageKey() == wanted;
                });
            },
        .showAll =
            [this](const QString& text) {
                show({});
                _view->find(text);
            }};
}

/// A program that only answers calls stays for another while.
void TarnwickDirectApp::answer()
{
    if (_isAnswering) {
        _unneeded.start();
    }
}

/// The program now counts as started by the user.
void TarnwickDirectApp::wakeUp()
{
    if (std::exchange(_isAnswering, false)) {
        _unneeded.stop();
        _staysInBackground = true;
        _trayHost.start();
    }
}

void TarnwickDirectApp::show(const PlatformData& platformData)
{
    const bool isFirst = _isAnswering;
    wakeUp();
    if (isFirst) {
        presentWhenSettled(platformData);
    } else {
        _window.present(std::nullopt, platformData);
    }
}

/// Deferred until the tray is known, so that the window has the right form from the start.
void TarnwickDirectApp::presentWhenSettled(const PlatformData& platformData)
{
    connect(
        &_trayHost,
        &TrayHost::settled,
        this,
        [this, platformData] { _window.present(std::nullopt, platformData); },
        Qt::SingleShotConnection);
}

/// Opens a page from outside of the panel, which stays open. Returns whether a row matches.
bool TarnwickDirectApp::openListed(const std::function<bool(const PullRequestRow&)>& isMeant)
{
    const auto& rows = _model.rows();
    const auto found = std::ranges::find_if(rows, isMeant);
    if (found == rows.end()) {
        return false;
    }
    // A copy, because the visit replaces the rows.
    const PullRequestKit::PullRequest pullRequest = found->pullRequest;
    _model.recordVisit(pullRequest.id);
    _model.navigation().open(pullRequest.url, {}, Tarnwick::PanelFate::stays);
    return true;
}

void TarnwickDirectApp::connectUpdates(ApplicationService& service)
{
    service.setChecksForUpdates(_updateManager.hasUpdater());
    // A call that started the program comes before the update manager is ready.
    connect(
        &service,
        &ApplicationService::checkForUpdatesRequested,
        this,
        &TarnwickDirectApp::checkForUpdates,
        Qt::QueuedConnection);
    // By then the module is loaded, and a download may follow.
    connect(&_updateManager, &UpdateManager::updateAvailabilityChanged, &ExitGuard::renew);
    connect(&_updateManager, &UpdateManager::canCheckForUpdatesChanged, this, [this] {
        menuContent().update(*_view);
    });
}

UpdaterHost TarnwickDirectApp::updaterHost()
{
    UpdaterHost host;
    host.defaults = _defaults;
    host.clock = _clock;
    host.bringToFront = [this](QWidget& window) {
        bringToFront(window, std::exchange(_checkRequest, {}));
    };
    host.takeFocusBack = [this] {
        if (_window.isInSight()) {
            bringToFront(_window, {});
        }
    };
    return host;
}

TarnwickMenuContent TarnwickDirectApp::menuContent()
{
    TarnwickMenuContent content;
    content.canCheckForUpdates = _updateManager.canCheckForUpdates();
    if (_updateManager.hasUpdater()) {
        content.checkForUpdates = [this] { checkForUpdates({}); };
    }
    return content;
}

/// A check that is already running is brought to the front.
void TarnwickDirectApp::checkForUpdates(const PlatformData& platformData)
{
    wakeUp();
    _checkRequest = platformData;
    if (_updateManager.canCheckForUpdates()) {
        _updateManager.checkForUpdates();
    } else {
        _updateManager.bringToFront();
    }
}

void TarnwickDirectApp::start(ShowPanel::Manner manner, const PlatformData& platformData)
{
    if (manner == ShowPanel::Manner::service) {
        _isAnswering = true;
        answer();
        return;
    }
    _staysInBackground = manner == ShowPanel::Manner::background;
    if (_staysInBackground) {
        // The list is hidden, but the icon and notifications need its data.
        _model.menuOpened();
    } else {
        presentWhenSettled(platformData);
    }
    _trayHost.start();
}

void TarnwickDirectApp::trayChanged()
{
    const bool hasTray = _trayHost.isPresent();
    if (hasTray && !_trayItem) {
        makeTrayItem();
    }
    _window.setForm(
        hasTray && canPlaceWindows() ? PanelWindow::Form::panel : PanelWindow::Form::window);
    _window.setLeaving(hasTray ? PanelWindow::Leaving::close : PanelWindow::Leaving::minimize);
}

void TarnwickDirectApp::makeTrayItem()
{
    _trayItem = std::make_unique<TrayItem>(_model, _trouble);
    auto* const item = _trayItem.get();
    item->setPanelOpen(_window.isInSight());
    connect(&_window, &PanelWindow::shown, item, [item] { item->setPanelOpen(true); });
    connect(&_window, &PanelWindow::hidden, item, [item] { item->setPanelOpen(false); });
    connect(item, &TrayItem::clicked, this, &TarnwickDirectApp::trayClicked);
    connect(item, &TrayItem::openRequested, this, [this] { _window.present(QCursor::pos(), {}); });
    connect(item, &TrayItem::reloadRequested, this, &TarnwickDirectApp::reload);
    connect(item, &TrayItem::pullRequestRequested, this, [this](const auto& id) {
        openListed([&](const PullRequestRow& row) { return row.id() == id; });
    });
    connect(item, &TrayItem::quitRequested, this, &TarnwickDirectApp::quitRequested);
}

void TarnwickDirectApp::trayClicked()
{
    // Tray hosts that take the focus have closed the panel before they report the click.
    if (!_window.hasJustLostFocus()) {
        toggle(QCursor::pos(), {});
    }
}

void TarnwickDirectApp::toggle(std::optional<QPoint> click, const PlatformData& platformData)
{
    if (_isAnswering) {
        show(platformData);
    } else if (_window.isInFront()) {
        _window.dismiss();
    } else {
        _window.present(click, platformData);
    }
}

void TarnwickDirectApp::reload()
{
    wakeUp();
    [[maybe_unused]] const auto refreshing = _model.refresh();
}

void TarnwickDirectApp::panelClosed()
{
    // A closed window without a tray icon would leave an invisible program.
    if (!_trayHost.isPresent() && !outlivesItsWindow()) {
        Q_EMIT quitRequested();
    }
}

bool TarnwickDirectApp::outlivesItsWindow() const
{
    return _staysInBackground || Tarnwick::notifies(_model.settings());
}

/// Explains once what closing the window does if no tray icon remains.
bool TarnwickDirectApp::explainsClosing()
{
    if (_isEnding || _trayHost.isPresent() || _staysInBackground || !outlivesItsWindow()
        || Tarnwick::readFlag(*_defaults, closingExplainedKey).value_or(false)) {
        return false;
    }
    const bool isShown = _view->explainClosing();
    if (isShown) {
        Tarnwick::writeFlag(*_defaults, closingExplainedKey, true);
        _window.present(std::nullopt, {});
    }
    return isShown;
}

/// For the panel and for menus, before they are first shown.
void TarnwickDirectApp::castShadow(QObject* shown)
{
    const bool isMenu = qobject_cast<Tarnwick::Menu*>(shown) != nullptr;
    if ((isMenu || shown == &_window)
        && shown->findChild<WindowShadow*>(QString(), Qt::FindDirectChildrenOnly) == nullptr) {
        const double radius = isMenu ? Tarnwick::MenuItems::cornerRadius : RoundedCorners::radius;
        new WindowShadow(static_cast<QWidget&>(*shown), radius, _appearance);
    }
}

bool TarnwickDirectApp::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::Quit) {
        _isEnding = true;
        _service.leave(_bus);
    } else if (event->type() == QEvent::Show && watched->isWidgetType()) {
        castShadow(watched);
    }
    return QObject::eventFilter(watched, event);
}

}  // namespace TarnwickDirect

#include "TarnwickDirect/Tray/TrayItem.h"

#include "TarnwickDirect/Tray/TrayText.h"

#include <algorithm>

namespace TarnwickDirect {

using Tarnwick::PullRequestMenuModel;

TrayItem::TrayItem(PullRequestMenuModel& model, QObject* parent)
    : QObject(parent)
    , _model(model)
{
    fillMenu();
    connect(&model, &PullRequestMenuModel::rowsChanged, this, &TrayItem::updateIcon);
    connect(&model, &PullRequestMenuModel::rowsChanged, this, &TrayItem::updateToolTip);
    connect(&model, &PullRequestMenuModel::stateChanged, this, &TrayItem::updateToolTip);
    connect(&model, &PullRequestMenuModel::lastRefreshedChanged, this, &TrayItem::updateToolTip);
    connect(&model, &PullRequestMenuModel::lastFailureChanged, this, &TrayItem::updateTrouble);
    connect(&model, &PullRequestMenuModel::lastRefreshedChanged, this, &TrayItem::updateTrouble);
    _troubleTimer.setSingleShot(true);
    _troubleTimer.setTimerType(Qt::VeryCoarseTimer);
    connect(&_troubleTimer, &QTimer::timeout, this, [this] { setTrouble(true); });
    updateTrouble();
    _icon.setContextMenu(&_menu);
    connect(
        &_icon,
        &QSystemTrayIcon::activated,
        this,
        [this](QSystemTrayIcon::ActivationReason reason) {
            // Of two quick clicks, an icon on X11 tells the second as a double one.
            if (reason == QSystemTrayIcon::Trigger || reason == QSystemTrayIcon::DoubleClick) {
                Q_EMIT clicked();
            }
        });
    _icon.show();
}

TrayItem::~TrayItem()
{
    _icon.setContextMenu(nullptr);
}

void TrayItem::fillMenu()
{
    connect(
        _menu.addAction(QStringLiteral("Open Tarnwick")),
        &QAction::triggered,
        this,
        &TrayItem::openRequested);
    connect(
        _menu.addAction(QStringLiteral("Reload")),
        &QAction::triggered,
        this,
        &TrayItem::reloadRequested);
    connect(
        _menu.addAction(QStringLiteral("Quit")),
        &QAction::triggered,
        this,
        &TrayItem::quitRequested);
}

void TrayItem::setPanelOpen(bool isOpen)
{
    _isPanelOpen = isOpen;
    updateToolTip();
}

TrayStatus TrayItem::status() const
{
    const auto& failure = _model.lastFailure();
    return {
        .state = _model.state(),
        .shownPullRequests = _model.rows().size(),
        .lastRefreshed = _model.lastRefreshed(),
        .failure = failure ? std::optional(Tarnwick::refreshFailure(*failure)) : std::nullopt,
        .isTrouble = _isTrouble};
}

/// A timer runs only as long as a failure has not become trouble: at rest nothing wakes up.
void TrayItem::updateTrouble()
{
    const TrayStatus now = status();
    const auto wait = untilTrouble(now.failure, now.lastRefreshed, _model.now());
    _troubleTimer.stop();
    if (wait && *wait > std::chrono::seconds{0} && !(_isTrouble && now.failure)) {
        _troubleTimer.start(*wait);
    }
    setTrouble(wait && (*wait == std::chrono::seconds{0} || _isTrouble));
}

void TrayItem::setTrouble(bool isTrouble)
{
    _isTrouble = isTrouble;
    updateIcon();
    updateToolTip();
}

void TrayItem::updateIcon()
{
    const TrayStatus now = status();
    const TarnwickMenuLabel::Mark mark{
        .isBlocked =
            knowsPullRequests(now)
            && std::ranges::any_of(
                _model.rows(), [](const auto& row) { return row.pullRequest.isBlocked(); }),
        .isTrouble = _isTrouble};
    if (_mark != mark) {
        _mark = mark;
        const auto background =
            TarnwickMenuLabel::backgroundOf(qEnvironmentVariable("XDG_CURRENT_DESKTOP"));
        _icon.setIcon(TarnwickMenuLabel::icon(background, mark));
    }
}

void TrayItem::updateToolTip()
{
    const QString text =
        _isPanelOpen ? QString() : trayText(status(), QDateTime::currentDateTime(), QLocale());
    if (_icon.toolTip() != text) {
        _icon.setToolTip(text);
    }
}

}  // namespace TarnwickDirect

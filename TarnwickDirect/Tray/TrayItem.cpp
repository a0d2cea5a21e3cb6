#include "TarnwickDirect/Tray/TrayItem.h"

#include "TarnwickDirect/Status/StatusText.h"
#include "TarnwickDirect/Tray/TrayText.h"

#include <algorithm>
#include <utility>

namespace TarnwickDirect {

using Tarnwick::PullRequestMenuModel;

TrayItem::TrayItem(PullRequestMenuModel& model, const Trouble& trouble, QObject* parent)
    : QObject(parent)
    , _model(model)
    , _trouble(trouble)
{
    fillMenu();
    connect(&model, &PullRequestMenuModel::rowsChanged, this, &TrayItem::updateIcon);
    connect(&model, &PullRequestMenuModel::rowsChanged, this, &TrayItem::updateToolTip);
    connect(&model, &PullRequestMenuModel::stateChanged, this, &TrayItem::updateToolTip);
    connect(&model, &PullRequestMenuModel::lastRefreshedChanged, this, &TrayItem::updateToolTip);
    connect(&model, &PullRequestMenuModel::lastFailureChanged, this, &TrayItem::updateIcon);
    connect(&model, &PullRequestMenuModel::lastFailureChanged, this, &TrayItem::updateToolTip);
    connect(&trouble, &Trouble::changed, this, &TrayItem::updateIcon);
    connect(&trouble, &Trouble::changed, this, &TrayItem::updateToolTip);
    _menuSoon.setSingleShot(true);
    _menuSoon.setInterval(std::chrono::milliseconds{0});
    connect(&_menuSoon, &QTimer::timeout, this, &TrayItem::updateMenu);
    const auto soon = qOverload<>(&QTimer::start);
    connect(&model, &PullRequestMenuModel::rowsChanged, &_menuSoon, soon);
    connect(&model, &PullRequestMenuModel::turnsChanged, &_menuSoon, soon);
    connect(&model, &PullRequestMenuModel::detailsChanged, &_menuSoon, soon);
    connect(&model, &PullRequestMenuModel::stateChanged, &_menuSoon, soon);
    connect(&model, &PullRequestMenuModel::lastRefreshedChanged, &_menuSoon, soon);
    connect(&trouble, &Trouble::changed, &_menuSoon, soon);
    updateIcon();
    updateToolTip();
    updateMenu();
    _icon.setContextMenu(&_menu);
    connect(
        &_icon,
        &QSystemTrayIcon::activated,
        this,
        [this](QSystemTrayIcon::ActivationReason reason) {
            // X11 icons report the second of two quick clicks as a double click.
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
    _summary = _menu.addAction(QString());
    _summary->setEnabled(false);
    _separator = _menu.addSeparator();
    _menu.addAction(QStringLiteral("Open Tarnwick"), this, &TrayItem::openRequested);
    _menu.addAction(QStringLiteral("Reload"), this, &TrayItem::reloadRequested);
    _menu.addAction(QStringLiteral("Quit"), this, &TrayItem::quitRequested);
}

/// Hosts cache the menu, so it is kept up to date while closed.
void TrayItem::updateMenu()
{
    const TrayStatus now = status();
    const auto turns = _model.list().turns();
    const Status counted = countedStatus(_model.rows(), turns);
    const bool isKnown = knowsPullRequests(now) && now.lastRefreshed;
    const QDateTime time = QDateTime::currentDateTime();
    if (isKnown && counted.waitingOnYou > 0) {
        Status shown = counted;
        shown.isStale = now.isTrouble;
        shown.lastRefreshed = now.lastRefreshed;
        _summary->setText(statusText(shown, time, QLocale()));
    } else {
        _summary->setText(trayText(now, time, QLocale()));
    }
    showRows(isKnown ? trayRows(_model.rows(), turns) : std::vector<TrayRow>());
}

void TrayItem::showRows(const std::vector<TrayRow>& rows)
{
    if (_rows == rows) {
        return;
    }
    _rows = rows;
    for (QAction* const action : std::exchange(_rowActions, {})) {
        delete action;
    }
    for (const TrayRow& row : rows) {
        auto* const action = new QAction(row.text, &_menu);
        connect(action, &QAction::triggered, this, [this, id = row.id] {
            Q_EMIT pullRequestRequested(id);
        });
        _menu.insertAction(_separator, action);
        _rowActions.push_back(action);
    }
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
        .isTrouble = _trouble.isThere()};
}

void TrayItem::updateIcon()
{
    const TrayStatus now = status();
    const TarnwickMenuLabel::Mark mark{
        .isBlocked =
            knowsPullRequests(now)
            && std::ranges::any_of(
                _model.rows(), [](const auto& row) { return row.pullRequest.isBlocked(); }),
        .isTrouble = _trouble.isThere()};
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

#include "TarnwickDirect/Tray/TrayItem.h"

#include "TarnwickDirect/Tray/TarnwickMenuLabel.h"
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
    updateIcon();
    updateToolTip();
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

void TrayItem::updateIcon()
{
    const bool isBlocked = std::ranges::any_of(
        _model.rows(), [](const auto& row) { return row.pullRequest.isBlocked(); });
    if (_isBlocked != isBlocked) {
        _isBlocked = isBlocked;
        const auto background =
            TarnwickMenuLabel::backgroundOf(qEnvironmentVariable("XDG_CURRENT_DESKTOP"));
        _icon.setIcon(TarnwickMenuLabel::icon(background, isBlocked));
    }
}

void TrayItem::updateToolTip()
{
    const QString text = trayText(
        _model.state(),
        _model.rows().size(),
        _model.lastRefreshed(),
        QDateTime::currentDateTime(),
        QLocale());
    if (_icon.toolTip() != text) {
        _icon.setToolTip(text);
    }
}

}  // namespace TarnwickDirect

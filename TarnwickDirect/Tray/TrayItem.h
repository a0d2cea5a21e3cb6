#pragma once

#include "Tarnwick/PullRequestMenuModel.h"
#include "TarnwickDirect/Status/Trouble.h"
#include "TarnwickDirect/Tray/TarnwickMenuLabel.h"
#include "TarnwickDirect/Tray/TrayRows.h"
#include "TarnwickDirect/Tray/TrayStatus.h"

#include <QMenu>
#include <QSystemTrayIcon>
#include <QTimer>

#include <optional>
#include <vector>

namespace TarnwickDirect {

/// The tray icon with its menu and tooltip, which follow the model. The menu begins with the
/// tooltip's text, because some desktops show no tooltips, and with the rows from `trayRows`.
/// Requires: there is a tray (`TrayHost`), and the model and its trouble outlive it. Main thread
/// only.
class TrayItem final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TrayItem)

public:
    TrayItem(
        Tarnwick::PullRequestMenuModel& model, const Trouble& trouble, QObject* parent = nullptr);
    ~TrayItem() override;

    /// While the panel is open there is no tooltip, which would cover it.
    void setPanelOpen(bool isOpen);

Q_SIGNALS:
    void clicked();
    void openRequested();
    void reloadRequested();
    void quitRequested();
    void pullRequestRequested(const PullRequestKit::PullRequestID& id);

private:
    void fillMenu();
    void updateMenu();
    void showRows(const std::vector<TrayRow>& rows);
    void updateIcon();
    void updateToolTip();
    TrayStatus status() const;

    Tarnwick::PullRequestMenuModel& _model;
    const Trouble& _trouble;
    QMenu _menu;
    QAction* _summary = nullptr;    ///< The menu's first line.
    QAction* _separator = nullptr;  ///< Below the rows; hidden without them.
    std::vector<TrayRow> _rows;
    std::vector<QAction*> _rowActions;
    QTimer _menuSoon;  ///< Batches changes.
    QSystemTrayIcon _icon;
    bool _isPanelOpen = false;
    std::optional<TarnwickMenuLabel::Mark> _mark;  ///< The mark currently shown.
};

}  // namespace TarnwickDirect

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

/// The program's icon in the tray with its menu and its tooltip, which follow the model. The menu
/// begins with what the tooltip says, because some desktops show none, and with what asks something
/// of the user. Requires:
/// there is a tray (`TrayHost`), and the model and its trouble live longer. Main thread only.
class TrayItem final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TrayItem)

public:
    TrayItem(
        Tarnwick::PullRequestMenuModel& model, const Trouble& trouble, QObject* parent = nullptr);
    ~TrayItem() override;

    /// While the panel is open, the icon has no tooltip, which would lie over it.
    void setPanelOpen(bool isOpen);

Q_SIGNALS:
    /// The user clicked the icon.
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
    QAction* _separator = nullptr;  ///< Below the rows, or hidden without them.
    std::vector<TrayRow> _rows;
    std::vector<QAction*> _rowActions;
    QTimer _menuSoon;  ///< Changes come in groups.
    QSystemTrayIcon _icon;
    bool _isPanelOpen = false;
    std::optional<TarnwickMenuLabel::Mark> _mark;  ///< As the icon shows it.
};

}  // namespace TarnwickDirect

#pragma once

#include "Tarnwick/PullRequestMenuModel.h"

#include <QMenu>
#include <QSystemTrayIcon>

#include <optional>

namespace TarnwickDirect {

/// The program's icon in the tray with its menu and its tooltip, which follow the model. Requires:
/// there is a tray (`TrayHost`), and the model lives longer. Main thread only.
class TrayItem final : public QObject {
    Q_OBJECT
    Q_DISABLE_COPY_MOVE(TrayItem)

public:
    explicit TrayItem(Tarnwick::PullRequestMenuModel& model, QObject* parent = nullptr);
    ~TrayItem() override;

Q_SIGNALS:
    /// The user clicked the icon.
    void clicked();
    void openRequested();
    void reloadRequested();
    void quitRequested();

private:
    void fillMenu();
    void updateIcon();
    void updateToolTip();

    Tarnwick::PullRequestMenuModel& _model;
    QMenu _menu;
    QSystemTrayIcon _icon;
    std::optional<bool> _isBlocked;  ///< As the icon shows it.
};

}  // namespace TarnwickDirect

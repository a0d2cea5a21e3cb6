#pragma once

#include "Tarnwick/PullRequestMenuModel.h"
#include "TarnwickDirect/Tray/TarnwickMenuLabel.h"
#include "TarnwickDirect/Tray/TrayStatus.h"

#include <QMenu>
#include <QSystemTrayIcon>
#include <QTimer>

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

    /// While the panel is open, the icon has no tooltip, which would lie over it.
    void setPanelOpen(bool isOpen);

Q_SIGNALS:
    /// The user clicked the icon.
    void clicked();
    void openRequested();
    void reloadRequested();
    void quitRequested();

private:
    void fillMenu();
    void updateTrouble();
    void setTrouble(bool isTrouble);
    void updateIcon();
    void updateToolTip();
    TrayStatus status() const;

    Tarnwick::PullRequestMenuModel& _model;
    QMenu _menu;
    QSystemTrayIcon _icon;
    QTimer _troubleTimer;  ///< Runs only while a failure waits to become trouble.
    bool _isTrouble = false;
    bool _isPanelOpen = false;
    std::optional<TarnwickMenuLabel::Mark> _mark;  ///< As the icon shows it.
};

}  // namespace TarnwickDirect

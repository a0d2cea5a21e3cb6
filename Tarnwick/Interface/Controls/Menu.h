#pragma once

#include <QMenu>

namespace Tarnwick {

/// A menu that stays open when a checkable item is triggered.
class Menu : public QMenu {
    Q_OBJECT

public:
    Menu(const QString& title, QWidget* parent);

    Menu* addSubmenu(const QString& title);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    bool chooseCheckable(QAction* action);
    QPoint _mouseAtOpening;
};

}  // namespace Tarnwick

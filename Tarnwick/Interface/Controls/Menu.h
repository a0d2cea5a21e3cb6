#pragma once

#include <QMenu>

namespace Tarnwick {

/// A menu of the program. Choosing an item that can be checked leaves it open, so that several can
/// be changed at one go.
class Menu : public QMenu {
    Q_OBJECT

public:
    Menu(const QString& title, QWidget* parent);

    /// Adds a submenu that looks and behaves as this one.
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

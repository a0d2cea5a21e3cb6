#include "Tarnwick/Interface/Controls/Menu.h"

#include "Tarnwick/Interface/Style/MenuItems.h"
#include "Tarnwick/Interface/Style/Painting.h"

#include <QApplication>
#include <QCursor>
#include <QKeyEvent>
#include <QMouseEvent>

namespace Tarnwick {

Menu::Menu(const QString& title, QWidget* parent)
    : QMenu(title, parent)
{
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    // When a screen reader triggers an item, Qt leaves the menu open, which only suits check marks.
    connect(this, &QMenu::triggered, this, [this](const QAction* action) {
        if (!action->isCheckable()) {
            close();
        }
    });
}

Menu* Menu::addSubmenu(const QString& title)
{
    auto* const submenu = new Menu(title, this);
    addMenu(submenu);
    return submenu;
}

bool Menu::chooseCheckable(QAction* action)
{
    if (action == nullptr || !action->isCheckable() || !action->isEnabled()) {
        return false;
    }
    action->trigger();
    return true;
}

/// A click where the mouse was when the menu opened closes it. Qt 6.8 does not know that place
/// before the first mouse event. Until the mouse has moved more than six times, it takes every
/// click for one there.
void Menu::mousePressEvent(QMouseEvent* event)
{
    const QPoint distance = event->globalPosition().toPoint() - _mouseAtOpening;
    const bool hasMoved = distance.manhattanLength() > QApplication::startDragDistance();
    if (hasMoved && rect().contains(event->position().toPoint())) {
        constexpr int enoughMoves = 8;
        for (int count = 0; count < enoughMoves; ++count) {
            QMouseEvent move(
                QEvent::MouseMove,
                event->position(),
                event->globalPosition(),
                Qt::NoButton,
                Qt::NoButton,
                event->modifiers());
            QMenu::mouseMoveEvent(&move);
        }
    }
    QMenu::mousePressEvent(event);
}

void Menu::mouseReleaseEvent(QMouseEvent* event)
{
    if (!chooseCheckable(actionAt(event->position().toPoint()))) {
        QMenu::mouseReleaseEvent(event);
    }
}

void Menu::keyPressEvent(QKeyEvent* event)
{
    const bool chooses = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter
                         || event->key() == Qt::Key_Space;
    if (!chooses || !chooseCheckable(activeAction())) {
        QMenu::keyPressEvent(event);
    }
}

void Menu::showEvent(QShowEvent* event)
{
    _mouseAtOpening = QCursor::pos();
    // Setting the font clears the cached item widths; the font itself is not used for drawing.
    setFont(appearance().line(TextStyle::body, TextWeight::regular).font);
    if (appearance().blendsWindows()) {
        clearMask();
    } else {
        setMask(Painting::roundedShape(size(), MenuItems::cornerRadius));
    }
    QMenu::showEvent(event);
}

}  // namespace Tarnwick

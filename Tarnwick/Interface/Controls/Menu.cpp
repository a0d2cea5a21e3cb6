#include "Tarnwick/Interface/Controls/Menu.h"

#include "Tarnwick/Interface/Controls/MenuStyle.h"
#include "Tarnwick/Interface/Look/Painting.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace Tarnwick {

Menu::Menu(const QString& title, const Appearance& appearance, QWidget* parent)
    : QMenu(title, parent)
    , _appearance(appearance)
{
    auto* const style = new MenuStyle(appearance);
    style->setParent(this);
    setStyle(style);
    setWindowFlags(windowFlags() | Qt::FramelessWindowHint | Qt::NoDropShadowWindowHint);
    setAttribute(Qt::WA_TranslucentBackground);
}

Menu* Menu::addSubmenu(const QString& title)
{
    auto* const submenu = new Menu(title, _appearance, this);
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
    // Item widths are cached until the font changes, and the menu's own font is never drawn with.
    setFont(_appearance.line(TextStyle::body, TextWeight::regular).font);
    if (_appearance.blendsWindows()) {
        clearMask();
    } else {
        setMask(Painting::roundedShape(size(), MenuStyle::radius));
    }
    QMenu::showEvent(event);
}

}  // namespace Tarnwick

#include "Tarnwick/Interface/Panel/PanelDismissal.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>
#include <QWindow>

namespace Tarnwick {
namespace {

/// Such a dialog leads the user through something that goes on without the panel.
bool isOnItsOwn(const QWindow& window)
{
    return window.type() == Qt::Dialog && window.transientParent() == nullptr;
}

/// Help texts, menus and the like never have the focus, and hosts of tray icons embed a window that
/// must stay.
bool canHaveFocus(const QWindow& window)
{
    const Qt::WindowFlags never =
        Qt::WindowDoesNotAcceptFocus | Qt::WindowTransparentForInput | Qt::BypassWindowManagerHint;
    switch (window.type()) {
    case Qt::Window:
    case Qt::Dialog:
    case Qt::Sheet:
    case Qt::Tool:
        return (window.flags() & never) == 0;
    default:
        return false;
    }
}

QWindow* firstVisibleWindow()
{
    const QWindowList windows = QGuiApplication::topLevelWindows();
    for (QWindow* const window : windows) {
        if (window->isVisible() && canHaveFocus(*window) && !isOnItsOwn(*window)) {
            return window;
        }
    }
    return nullptr;
}

/// A widget has to be told itself: hidden through its window it would still take itself for shown,
/// and never come back (Qt 6.4).
void hide(QWindow& window)
{
    const QWidgetList widgets = QApplication::topLevelWidgets();
    for (QWidget* const widget : widgets) {
        if (widget->windowHandle() == &window) {
            widget->hide();
            return;
        }
    }
    window.hide();
}

}  // namespace

void dismissPanel(PanelSearch search)
{
    QPointer<QWindow> window = QGuiApplication::focusWindow();
    if (window && isOnItsOwn(*window)) {
        window = nullptr;
    }
    if (!window && search == PanelSearch::anyVisible) {
        window = firstVisibleWindow();
    }
    if (!window) {
        return;
    }
    // A dialog without its panel would stay in front of what is opened.
    if (QWindow* const owner = window->transientParent()) {
        hide(*owner);
    }
    if (window) {
        hide(*window);
    }
}

}  // namespace Tarnwick

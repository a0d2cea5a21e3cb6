#include "Tarnwick/Interface/Panel/PanelDismissal.h"

#include <QApplication>
#include <QPointer>
#include <QWidget>
#include <QWindow>

namespace Tarnwick {
namespace {

/// A dialog without a parent window does not depend on the panel.
bool isOnItsOwn(const QWindow& window)
{
    return window.type() == Qt::Dialog && window.transientParent() == nullptr;
}

/// Excludes tool tips, menus and the window embedded by a tray host.
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

/// Hides the widget if there is one: hidden through its window it would still count as visible and
/// never come back (Qt 6.4).
void hide(QWindow& window)
{
    if (QWidget* const widget = QWidget::find(window.winId())) {
        widget->hide();
    } else {
        window.hide();
    }
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
    // A dialog of a hidden panel would stay in front.
    if (QWindow* const owner = window->transientParent()) {
        hide(*owner);
    }
    if (window) {
        hide(*window);
    }
}

}  // namespace Tarnwick

#include "Tarnwick/Desktop/PanelDismissal.h"

#include <QGuiApplication>
#include <QPointer>
#include <QWindow>

namespace Tarnwick {
namespace {

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
        if (window->isVisible() && canHaveFocus(*window)) {
            return window;
        }
    }
    return nullptr;
}

}  // namespace

void dismissPanel(PanelSearch search)
{
    if (qobject_cast<QGuiApplication*>(QCoreApplication::instance()) == nullptr) {
        return;
    }
    QPointer<QWindow> window = QGuiApplication::focusWindow();
    if (!window && search == PanelSearch::anyVisible) {
        window = firstVisibleWindow();
    }
    if (!window) {
        return;
    }
    // An alert without its panel would stay in front of what is opened.
    if (QWindow* const owner = window->transientParent()) {
        owner->hide();
    }
    if (window) {
        window->hide();
    }
}

}  // namespace Tarnwick

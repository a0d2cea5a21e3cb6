#include "Tarnwick/Interface/List/ListKeys.h"

#include <QKeyEvent>

namespace Tarnwick {
namespace {

std::optional<ListCommand> plainCommand(int key)
{
    switch (key) {
    case Qt::Key_Up:
    case Qt::Key_K:
        return ListCommand::up;
    case Qt::Key_Down:
    case Qt::Key_J:
        return ListCommand::down;
    case Qt::Key_Home:
        return ListCommand::first;
    case Qt::Key_End:
        return ListCommand::last;
    case Qt::Key_PageUp:
        return ListCommand::pageUp;
    case Qt::Key_PageDown:
        return ListCommand::pageDown;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return ListCommand::open;
    case Qt::Key_Menu:
        return ListCommand::showMenu;
    default:
        return {};
    }
}

/// Ctrl is required for commands that start work or leave the panel open.
std::optional<ListCommand> controlCommand(int key)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return ListCommand::openAndStay;
    case Qt::Key_E:
        return ListCommand::openInEditor;
    case Qt::Key_Down:
        return ListCommand::nextGroup;
    case Qt::Key_Up:
        return ListCommand::previousGroup;
    default:
        return {};
    }
}

}  // namespace

std::optional<ListCommand> listCommand(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (modifiers == Qt::ShiftModifier && event.key() == Qt::Key_F10) {
        return ListCommand::showMenu;
    }
    if (modifiers == Qt::ControlModifier) {
        return controlCommand(event.key());
    }
    // The slash needs Shift on some keyboard layouts.
    const bool isText = (modifiers & ~Qt::ShiftModifier) == Qt::NoModifier;
    if (isText && event.text() == QLatin1String("/")) {
        return ListCommand::find;
    }
    return modifiers == Qt::NoModifier ? plainCommand(event.key()) : std::nullopt;
}

}  // namespace Tarnwick

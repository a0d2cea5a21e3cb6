#include "Tarnwick/Interface/List/ListKeys.h"

#include <QKeyEvent>

#include <algorithm>
#include <span>

namespace Tarnwick {
namespace {

struct KeyCommand {
    int key;
    ListCommand command;
};

constexpr KeyCommand plainKeys[] = {
    {Qt::Key_Up, ListCommand::up},
    {Qt::Key_K, ListCommand::up},
    {Qt::Key_Down, ListCommand::down},
    {Qt::Key_J, ListCommand::down},
    {Qt::Key_Home, ListCommand::first},
    {Qt::Key_End, ListCommand::last},
    {Qt::Key_PageUp, ListCommand::pageUp},
    {Qt::Key_PageDown, ListCommand::pageDown},
    {Qt::Key_Return, ListCommand::open},
    {Qt::Key_Enter, ListCommand::open},
    {Qt::Key_Menu, ListCommand::showMenu},
};

/// Ctrl is required for commands that start work or leave the panel open.
constexpr KeyCommand controlKeys[] = {
    {Qt::Key_Return, ListCommand::openAndStay},
    {Qt::Key_Enter, ListCommand::openAndStay},
    {Qt::Key_E, ListCommand::openInEditor},
    {Qt::Key_Down, ListCommand::nextGroup},
    {Qt::Key_Up, ListCommand::previousGroup},
};

std::optional<ListCommand> commandOf(int key, std::span<const KeyCommand> keys)
{
    const auto found = std::ranges::find(keys, key, &KeyCommand::key);
    return found == keys.end() ? std::nullopt : std::optional(found->command);
}

}  // namespace

std::optional<ListCommand> listCommand(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    if (modifiers == Qt::ShiftModifier && event.key() == Qt::Key_F10) {
        return ListCommand::showMenu;
    }
    if (modifiers == Qt::ControlModifier) {
        return commandOf(event.key(), controlKeys);
    }
    // The slash needs Shift on some keyboard layouts.
    const bool isText = (modifiers & ~Qt::ShiftModifier) == Qt::NoModifier;
    if (isText && event.text() == QLatin1String("/")) {
        return ListCommand::find;
    }
    return modifiers == Qt::NoModifier ? commandOf(event.key(), plainKeys) : std::nullopt;
}

}  // namespace Tarnwick

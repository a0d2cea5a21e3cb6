#pragma once

#include <optional>

class QKeyEvent;

namespace Tarnwick {

/// What the list does on a key.
enum class ListCommand {
    up,
    down,
    first,
    last,
    pageUp,
    pageDown,
    nextGroup,
    previousGroup,
    open,
    openAndStay,
    openInEditor,
    find,
    showMenu,
};

/// Nothing for keys that are the panel's. Safe from any thread.
std::optional<ListCommand> listCommand(const QKeyEvent& event);

}  // namespace Tarnwick

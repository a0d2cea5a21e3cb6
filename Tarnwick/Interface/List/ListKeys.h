#pragma once

#include <optional>

class QKeyEvent;

namespace Tarnwick {

/// The list's reaction to a key.
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

/// Nothing for keys that the panel handles. Safe from any thread.
std::optional<ListCommand> listCommand(const QKeyEvent& event);

}  // namespace Tarnwick

#pragma once

#include "Tarnwick/Interface/Controls/Menu.h"
#include "Tarnwick/Interface/List/RowContent.h"

#include <functional>

namespace Tarnwick {

/// What the user can want done with a row.
enum class RowAction {
    open,
    openAndStay,  ///< While the panel stays; not in the menu.
    openInEditor,
    openFiles,
    openChecks,
    markAsRead,
    markAsUnread,
    muteUntilChange,
    muteForADay,
    unmute,
    muteAuthor,
    unmuteAuthor,
};

/// The menu of a row, which deletes itself when it has been closed. It copies to the clipboard by
/// itself and tells `choose` of everything else. Pull requests of `account`, the user's login or
/// empty, are not muted with all others by their author. Main thread only.
Menu* makeRowMenu(
    const ListedRow& row,
    const std::string& account,
    const std::function<void(RowAction)>& choose,
    QWidget* parent);

}  // namespace Tarnwick

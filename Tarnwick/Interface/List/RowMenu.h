#pragma once

#include "Tarnwick/Interface/Controls/Menu.h"
#include "Tarnwick/Interface/List/RowContent.h"

#include <functional>

namespace Tarnwick {

enum class RowAction {
    open,
    openAndStay,  ///< Leaves the panel open; not in the menu.
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

/// The context menu of a row. It deletes itself when closed. Copying is done here; other actions go
/// to `choose`. There is no item to mute the author `account`, the user's login, which may be
/// empty. Main thread only.
Menu* makeRowMenu(
    const ListedRow& row,
    const std::string& account,
    const std::function<void(RowAction)>& choose,
    QWidget* parent);

}  // namespace Tarnwick

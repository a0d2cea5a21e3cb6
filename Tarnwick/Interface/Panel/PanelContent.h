#pragma once

#include "Tarnwick/Model/HiddenCounts.h"
#include "Tarnwick/Model/MenuState.h"

#include <QString>

#include <optional>
#include <vector>

namespace Tarnwick {

/// What a notice offers to do.
enum class NoticeAction {
    tryAgain,
    chooseRepositories,
    showHidden,
    copyLogin,
};

/// One thing to say in the place of a list. Empty texts are left out.
struct NoticeContent {
    QString symbol = {};  ///< A system symbol.
    QString image = {};   ///< A resource icon, in the place of a symbol.
    QString title = {};
    QString message = {};
    QString hint = {};  ///< What stands between backquotes is code.
    bool hasSpinner = false;
    std::vector<NoticeAction> actions = {};  ///< The first one gets the focus.

    bool operator==(const NoticeContent&) const = default;
};

/// The command that signs in.
inline const QString loginCommand = QStringLiteral("gh auth login");

/// What stands between header and footer in the place of the list; nothing while that is shown.
/// `hasRows` says that there is something to list, dimmed rows included, `choosesNothing` that no
/// repository is selected.
std::optional<NoticeContent> panelContent(
    const MenuState& state, bool hasRows, bool choosesNothing, const HiddenCounts& hidden = {});

}  // namespace Tarnwick

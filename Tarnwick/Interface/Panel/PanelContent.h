#pragma once

#include "Tarnwick/Model/HiddenCounts.h"
#include "Tarnwick/Model/MenuState.h"

#include <QString>

#include <optional>
#include <vector>

namespace Tarnwick {

enum class NoticeAction {
    tryAgain,
    chooseRepositories,
    showHidden,
    copyLogin,
};

/// The content of a notice. Empty texts are left out.
struct NoticeContent {
    QString symbol = {};  ///< A system symbol.
    QString image = {};   ///< A resource icon instead of a symbol.
    QString title = {};
    QString message = {};
    QString hint = {};  ///< Text between backquotes is code.
    bool hasSpinner = false;
    std::vector<NoticeAction> actions = {};  ///< The first one gets the focus.

    bool operator==(const NoticeContent&) const = default;
};

inline const QString loginCommand = QStringLiteral("gh auth login");

/// The notice shown instead of the list, or nothing. `hasRows` includes dimmed rows;
/// `choosesNothing` means that no repository is selected.
std::optional<NoticeContent> panelContent(
    const MenuState& state, bool hasRows, bool choosesNothing, const HiddenCounts& hidden = {});

}  // namespace Tarnwick

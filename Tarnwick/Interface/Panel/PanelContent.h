#pragma once

#include "Tarnwick/Model/HiddenCounts.h"
#include "Tarnwick/Model/MenuState.h"

#include <QString>

#include <variant>

namespace Tarnwick {

/// The list of rows.
struct ListContent {
    bool operator==(const ListContent&) const = default;
};

/// One thing to say in the middle of the panel.
struct StatusContent {
    QString symbol;  ///< A system symbol; empty when there is an image.
    QString image;   ///< A resource icon; empty when there is a symbol.
    QString title;
    QString detail = {};      ///< Why there is nothing to list, where it is known.
    bool hasSpinner = false;  ///< Without one there is a "Try Again" button.
    bool offersRepositories = false;

    bool operator==(const StatusContent&) const = default;
};

/// What to do about `gh` before anything can be listed.
struct AuthenticationContent {
    QString symbol;
    QString title;
    QString message;

    bool operator==(const AuthenticationContent&) const = default;
};

using PanelContent = std::variant<ListContent, StatusContent, AuthenticationContent>;

/// What stands between header and footer. `hasRows` says that there is something to list, dimmed
/// rows included, `choosesNothing` that no repository is selected.
PanelContent panelContent(
    const MenuState& state, bool hasRows, bool choosesNothing, const HiddenCounts& hidden = {});

}  // namespace Tarnwick

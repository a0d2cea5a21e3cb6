#pragma once

#include "TarnwickDirect/SoftwareUpdate/Installation.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateState.h"

namespace TarnwickDirect {

/// What the user can answer.
enum class UpdateAction {
    okay,
    cancel,
    skip,
    remindLater,
    install
};

/// The text of the action's button.
QString textOf(UpdateAction action);

/// What the dialog shows.
struct UpdatePage {
    QString title;
    QString message = {};
    QString notes = {};                      ///< Release notes as text.
    std::optional<double> progress = {};     ///< From 0 to 1.
    bool wasAskedFor = true;                 ///< Else it does not take the focus.
    bool isBusy = false;                     ///< Something runs, and nobody knows for how long.
    std::vector<UpdateAction> actions = {};  ///< The last one is the most likely.

    bool operator==(const UpdatePage&) const = default;

    /// What closing the dialog means: the action that decides nothing.
    UpdateAction closing() const;
};

/// The page for a state, or nothing where there is nothing to show. Main thread only.
std::optional<UpdatePage> updatePage(
    const UpdateState& state, const Installation& installation, const QString& ownVersion);

}  // namespace TarnwickDirect

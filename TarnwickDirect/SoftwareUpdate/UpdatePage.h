#pragma once

#include "TarnwickDirect/SoftwareUpdate/Installation.h"
#include "TarnwickDirect/SoftwareUpdate/UpdateState.h"

namespace TarnwickDirect {

enum class UpdateAction {
    okay,
    cancel,
    skip,
    remindLater,
    install
};

QString textOf(UpdateAction action);

struct UpdatePage {
    QString title;
    QString message = {};
    QString notes = {};                      ///< Plain text.
    std::optional<double> progress = {};     ///< From 0 to 1.
    bool wasAskedFor = true;                 ///< Otherwise it does not take the focus.
    bool isBusy = false;                     ///< The progress is indeterminate.
    std::vector<UpdateAction> actions = {};  ///< The last one is the default.

    bool operator==(const UpdatePage&) const = default;

    /// The action of closing the dialog, which decides nothing.
    UpdateAction closing() const;
};

/// The page for a state, or nothing if there is nothing to show. Main thread only.
std::optional<UpdatePage> updatePage(
    const UpdateState& state, const Installation& installation, const QString& ownVersion);

}  // namespace TarnwickDirect

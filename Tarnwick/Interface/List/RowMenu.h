#pragma once

#include "PullRequestKit/PullRequest.h"
#include "Tarnwick/Interface/Controls/Menu.h"

#include <functional>

namespace Tarnwick {

/// What the first two items of a row's menu do; the others copy to the clipboard.
struct RowMenuActions {
    std::function<void()> open;
    std::function<void()> openInEditor;
};

/// The menu of a row, which deletes itself when it has been closed. Main thread only.
Menu* makeRowMenu(
    const PullRequestKit::PullRequest& pullRequest,
    RowMenuActions actions,
    const Appearance& appearance,
    QWidget* parent);

}  // namespace Tarnwick

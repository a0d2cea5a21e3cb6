#pragma once

#include "Tarnwick/PullRequestMenuView.h"

#include <functional>

namespace TarnwickDirect {

/// The panel's content as the program has it: what the shell knows of software updates goes in, and
/// the menu view on the shared model comes out. Main thread only.
struct TarnwickMenuContent {
    bool canCheckForUpdates = false;
    std::function<void()> checkForUpdates;  ///< Empty where the program has no updater.

    /// Requires: `model` lives longer than the view.
    Tarnwick::PullRequestMenuView* makeView(Tarnwick::PullRequestMenuModel& model) const;

    /// Has a view that was made before follow.
    void update(Tarnwick::PullRequestMenuView& view) const;
};

}  // namespace TarnwickDirect

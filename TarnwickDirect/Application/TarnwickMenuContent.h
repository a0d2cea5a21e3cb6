#pragma once

#include "Tarnwick/PullRequestMenuView.h"

#include <functional>

namespace TarnwickDirect {

/// Creates the panel's content and tells it about software updates. Main thread only.
struct TarnwickMenuContent {
    bool canCheckForUpdates = false;
    std::function<void()> checkForUpdates;  ///< Empty without an updater.

    /// Requires: `model` outlives the view.
    Tarnwick::PullRequestMenuView* makeView(Tarnwick::PullRequestMenuModel& model) const;

    /// Updates an existing view.
    void update(Tarnwick::PullRequestMenuView& view) const;
};

}  // namespace TarnwickDirect

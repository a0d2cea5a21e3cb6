#pragma once

#include "Tarnwick/PullRequestMenuView.h"

#include <functional>

namespace TarnwickDirect {

/// Creates the panel's content and tells it about software updates. Main thread only.
struct TarnwickMenuContent {
    bool canCheckForUpdates = false;
    std::function<void()> checkForUpdates;  ///< Empty without an updater.

    /// Requires: `model` outlives the view.
    Tarnwick::PullRequestMenuView* makeView(Tarnwick::PullRequestMenuModel& model) const
    {
        auto* const view = new Tarnwick::PullRequestMenuView(model);
        update(*view);
        return view;
    }

    /// Updates an existing view.
    void update(Tarnwick::PullRequestMenuView& view) const
    {
        view.setUpdateCheck(canCheckForUpdates, checkForUpdates);
    }
};

}  // namespace TarnwickDirect

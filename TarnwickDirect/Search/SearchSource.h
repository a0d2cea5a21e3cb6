#pragma once

#include "PullRequestKit/PullRequestRow.h"

#include <QString>

#include <functional>
#include <span>

namespace TarnwickDirect {

/// What the launcher's search asks, and what it can have done. All are required. Main thread only.
struct SearchSource {
    std::function<std::span<const PullRequestKit::PullRequestRow>()> rows;

    /// Opens the page of a row, by its storage key. Of one that is not listed any more nothing
    /// comes.
    std::function<void(const QString& key)> open;

    /// Shows the panel with this text to be found.
    std::function<void(const QString& text)> showAll;
};

}  // namespace TarnwickDirect

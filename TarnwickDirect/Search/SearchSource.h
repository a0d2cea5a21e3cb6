#pragma once

#include "PullRequestKit/PullRequestRow.h"

#include <QString>

#include <functional>
#include <span>

namespace TarnwickDirect {

/// The data and actions of the launcher search. All are required. Main thread only.
struct SearchSource {
    std::function<std::span<const PullRequestKit::PullRequestRow>()> rows;

    /// Opens the page of a row by its storage key. Ignores unknown keys.
    std::function<void(const QString& key)> open;

    /// Shows the panel with this search text.
    std::function<void(const QString& text)> showAll;
};

}  // namespace TarnwickDirect

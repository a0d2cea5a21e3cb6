#pragma once

#include "Tarnwick/Interface/List/RowMetrics.h"

#include <QRect>

#include <cstdint>

namespace Tarnwick {

/// What a row looks like before anything is known of its words.
struct RowShape {
    std::int64_t depth = 0;
    int titleLines = 1;
    bool hasWarning = false;
};

/// Where everything of one row is, in logical pixels from the row's upper left corner. Size hint,
/// painting, hit tests and help texts all go by it. What a row does not have is empty.
/// Safe from any thread.
struct RowGeometry {
    int height = 0;
    QRect fill;  ///< Under the pointer, when selected, and inside the focus ring.
    QRect blockedBar;
    QRect arrow;
    QRect stateIcon;
    QRect dot;      ///< The mark of what has changed.
    QRect dotHelp;  ///< Where it says what has.
    QRect title;
    QRect warning;
    QRect details;
    QRect detailsBesideButton;  ///< What is left of `details` while the editor button shows.
    QRect conflict;
    QRect review;  ///< The whole badge.
    QRect reviewIcon;
    QRect reviewCount;
    QRect check;
    QRect checkIcon;
    QRect checkCount;
    QRect editorButton;
    QRect editorIcon;
    QRect editorHitArea;
    QRect line;  ///< Above the row, of no height: it is one device pixel.

    bool operator==(const RowGeometry&) const = default;
};

int titleWidth(const RowMetrics& metrics, std::int64_t depth);

int rowHeight(const RowMetrics& metrics, const RowShape& shape);

RowGeometry rowGeometry(const RowMetrics& metrics, const RowShape& shape);

}  // namespace Tarnwick

#pragma once

#include "Tarnwick/Interface/List/RowMetrics.h"

#include <QRect>

#include <cstdint>

namespace Tarnwick {

/// The parts of a row that do not depend on its texts.
struct RowShape {
    std::int64_t depth = 0;
    int titleLines = 1;
    bool hasWarning = false;
};

/// The places of a row's parts, in logical pixels from its upper left corner. Used for size hint,
/// painting, hit tests and tool tips. Absent parts are empty. Safe from any thread.
struct RowGeometry {
    int height = 0;
    QRect fill;  ///< For hover, selection and focus ring.
    QRect blockedBar;
    QRect arrow;
    QRect stateIcon;
    QRect dot;      ///< The mark of a changed row.
    QRect dotHelp;  ///< The area of its tool tip.
    QRect title;
    QRect warning;
    QRect details;
    QRect detailsBesideButton;  ///< `details` while the editor button is shown.
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
    QRect line;  ///< Above the row. Without height: it is painted one device pixel high.

    bool operator==(const RowGeometry&) const = default;
};

int titleWidth(const RowMetrics& metrics, std::int64_t depth);

int rowHeight(const RowMetrics& metrics, const RowShape& shape);

RowGeometry rowGeometry(const RowMetrics& metrics, const RowShape& shape);

}  // namespace Tarnwick

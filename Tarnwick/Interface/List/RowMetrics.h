#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QSize>

namespace Tarnwick {

/// The widest counts of a list, in multiples of the font's size, to align badges in columns.
struct CountWidths {
    double reviews = 0;
    double checks = 0;

    bool operator==(const CountWidths&) const = default;
};

/// Sizes that all rows of a list share, in whole logical pixels.
struct RowMetrics {
    LineStyle title;
    LineStyle dimmedTitle;
    LineStyle caption;  ///< The warning and the line of details.
    LineStyle count;    ///< Also for a reason that the user can act on.
    int width = 0;      ///< Of the row.
    int heading = 0;    ///< The height of a group's heading.
    int icon = 0;
    int arrow = 0;
    int dot = 0;
    int dotHelpWidth = 0;
    QSize editorButton;
    int editorIcon = 0;
    int badgeGap = 0;  ///< Between a badge's icon and its count.
    int reviewWidth = 0;
    int checkWidth = 0;
};

/// The sizes for this width; narrow rows have smaller gaps. Main thread only.
RowMetrics rowMetrics(int width, CountWidths counts);

}  // namespace Tarnwick

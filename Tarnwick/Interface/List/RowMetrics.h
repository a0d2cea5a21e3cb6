#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QSize>

namespace Tarnwick {

/// How wide the widest counts of a list are, in multiples of the font's size, so that the badges of
/// all rows stand in columns.
struct CountWidths {
    double reviews = 0;
    double checks = 0;

    bool operator==(const CountWidths&) const = default;
};

/// The sizes that all rows of a list share. Logical pixels; lengths are whole.
struct RowMetrics {
    LineStyle title;
    LineStyle dimmedTitle;
    LineStyle caption;  ///< The warning and the line of details.
    LineStyle count;    ///< And a reason that asks something of the user.
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

/// For rows of this width. Where little room is left for titles, badges give up some of their gaps.
/// Main thread only.
RowMetrics rowMetrics(int width, CountWidths counts);

}  // namespace Tarnwick

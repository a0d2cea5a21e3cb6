#pragma once

#include "Tarnwick/Interface/List/ListKeys.h"

#include <QRect>

#include <functional>

namespace Tarnwick {

/// The properties of a list that navigation depends on.
struct ListExtent {
    int count = 0;  ///< At least one row is not a heading.
    int firstInSight = 0;
    int pageHeight = 0;  ///< In logical pixels.
    std::function<QRect(int)> placeOf;
    /// Whether a row is a heading; such rows are skipped. Empty if there are no headings.
    std::function<bool(int)> isHeading = {};
};

/// The row that a key leads to. `selected` may be -1; navigation then starts at the first visible
/// row. A page ends with the last row that fits entirely. Back by a group leads to the first row of
/// the group, and from there to that of the previous one. Safe from any thread.
int targetRow(ListCommand command, int selected, const ListExtent& list);

}  // namespace Tarnwick

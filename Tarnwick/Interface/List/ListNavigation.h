#pragma once

#include "Tarnwick/Interface/List/ListKeys.h"

#include <QRect>

#include <functional>

namespace Tarnwick {

/// What moving through a list needs to know of it.
struct ListExtent {
    int count = 0;  ///< At least 1 that is no heading.
    int firstInSight = 0;
    int pageHeight = 0;                 ///< In logical pixels.
    std::function<QRect(int)> placeOf;  ///< Of a row.
    /// Headings are passed; they are what groups begin with. Without it no row is one.
    std::function<bool(int)> isHeading = {};
};

/// The row that a key leads to from the selected one, or from none, which is -1: then the first row
/// in sight begins. A page ends with the last row that fits into it whole. Back by a group is to
/// the first row of the group, and from there to that of the one before. Safe from any thread.
int targetRow(ListCommand command, int selected, const ListExtent& list);

}  // namespace Tarnwick

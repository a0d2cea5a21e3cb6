#include "Tarnwick/Interface/List/ListNavigation.h"

#include <algorithm>

namespace Tarnwick {
namespace {

/// `direction` is 1 or -1. At least one row further, where there is one.
int rowAPageFrom(int row, int direction, const ListExtent& list)
{
    const QRect start = list.placeOf(row);
    int target = row;
    for (int next = row + direction; next >= 0 && next < list.count; next += direction) {
        const int extent = start.united(list.placeOf(next)).height();
        if (extent > list.pageHeight && target != row) {
            break;
        }
        target = next;
    }
    return target;
}

int wantedRow(ListCommand command, int selected, const ListExtent& list)
{
    switch (command) {
    case ListCommand::first:
        return 0;
    case ListCommand::last:
        return list.count - 1;
    default:
        break;
    }
    if (selected < 0) {
        return list.firstInSight;
    }
    switch (command) {
    case ListCommand::up:
        return selected - 1;
    case ListCommand::down:
        return selected + 1;
    case ListCommand::pageUp:
        return rowAPageFrom(selected, -1, list);
    case ListCommand::pageDown:
        return rowAPageFrom(selected, 1, list);
    default:
        return selected;
    }
}

}  // namespace

int targetRow(ListCommand command, int selected, const ListExtent& list)
{
    return std::clamp(wantedRow(command, selected, list), 0, list.count - 1);
}

}  // namespace Tarnwick

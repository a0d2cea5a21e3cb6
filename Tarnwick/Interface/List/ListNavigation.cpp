#include "Tarnwick/Interface/List/ListNavigation.h"

namespace Tarnwick {
namespace {

bool isStop(int row, const ListExtent& list)
{
    return !list.isHeading || !list.isHeading(row);
}

/// The next row that is not a heading, or -1. `direction` is 1 or -1.
int nextStop(int row, int direction, const ListExtent& list)
{
    for (int next = row + direction; next >= 0 && next < list.count; next += direction) {
        if (isStop(next, list)) {
            return next;
        }
    }
    return -1;
}

int rowAPageFrom(int row, int direction, const ListExtent& list)
{
    const QRect start = list.placeOf(row);
    int target = row;
    for (int next = nextStop(row, direction, list); next >= 0;
         next = nextStop(next, direction, list)) {
        const int extent = start.united(list.placeOf(next)).height();
        if (extent > list.pageHeight && target != row) {
            break;
        }
        target = next;
    }
    return target;
}

/// The heading at or beyond a row, or -1.
int headingFrom(int row, int direction, const ListExtent& list)
{
    while (row >= 0 && row < list.count && isStop(row, list)) {
        row += direction;
    }
    return row < list.count ? row : -1;
}

int firstOfNextGroup(int row, const ListExtent& list)
{
    const int heading = headingFrom(row, 1, list);
    return heading < 0 ? -1 : nextStop(heading, 1, list);
}

int firstOfGroupBefore(int row, const ListExtent& list)
{
    const int heading = headingFrom(row, -1, list);
    const int first = nextStop(heading, 1, list);
    if (first < row || heading <= 0) {
        return first;
    }
    return nextStop(headingFrom(heading - 1, -1, list), 1, list);
}

int wantedRow(ListCommand command, int selected, const ListExtent& list)
{
    switch (command) {
    case ListCommand::first:
        return nextStop(-1, 1, list);
    case ListCommand::last:
        return nextStop(list.count, -1, list);
    default:
        break;
    }
    if (selected < 0) {
        return list.firstInSight;
    }
    switch (command) {
    case ListCommand::up:
        return nextStop(selected, -1, list);
    case ListCommand::down:
        return nextStop(selected, 1, list);
    case ListCommand::pageUp:
        return rowAPageFrom(selected, -1, list);
    case ListCommand::pageDown:
        return rowAPageFrom(selected, 1, list);
    case ListCommand::nextGroup:
        return firstOfNextGroup(selected, list);
    case ListCommand::previousGroup:
        return firstOfGroupBefore(selected, list);
    default:
        return selected;
    }
}

}  // namespace

int targetRow(ListCommand command, int selected, const ListExtent& list)
{
    const int wanted = wantedRow(command, selected, list);
    return wanted < 0 ? selected : wanted;
}

}  // namespace Tarnwick

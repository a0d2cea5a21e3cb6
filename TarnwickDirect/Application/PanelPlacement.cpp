#include "TarnwickDirect/Application/PanelPlacement.h"

#include <algorithm>
#include <cassert>

namespace TarnwickDirect {
namespace {

/// Between the panel and the edges of the free area.
constexpr int margin = 4;

/// Between the panel and a click inside the free area, on a tray that hides itself or that the
/// desktop does not reserve space for.
constexpr int iconReach = 16;

int distance(const QRect& area, const QPoint& point)
{
    const int x = std::max({area.left() - point.x(), 0, point.x() - area.right()});
    const int y = std::max({area.top() - point.y(), 0, point.y() - area.bottom()});
    return x + y;
}

const ScreenArea& screenAt(const QPoint& point, const QList<ScreenArea>& screens)
{
    return *std::ranges::min_element(
        screens, {}, [&](const ScreenArea& screen) { return distance(screen.whole, point); });
}

/// The edge of the tray: where the click is outside of the free area, else the nearest.
Qt::Edge edgeOf(const QRect& area, const QPoint& click)
{
    const int top = click.y() - area.top();
    const int bottom = area.bottom() - click.y();
    const int left = click.x() - area.left();
    const int right = area.right() - click.x();
    const int nearest = std::min({top, bottom, left, right});
    if (nearest == top) {
        return Qt::TopEdge;
    }
    if (nearest == bottom) {
        return Qt::BottomEdge;
    }
    return nearest == left ? Qt::LeftEdge : Qt::RightEdge;
}

QPoint usualTray(const ScreenArea& screen)
{
    const bool isAtBottom =
        screen.free.bottom() < screen.whole.bottom() && screen.free.top() == screen.whole.top();
    return isAtBottom ? screen.whole.bottomRight() : screen.whole.topRight();
}

}  // namespace

QRect panelPlace(const QSize& size, std::optional<QPoint> click, const QList<ScreenArea>& screens)
{
    assert(!screens.isEmpty());
    const ScreenArea& screen = click ? screenAt(*click, screens) : screens.first();
    const QPoint point = click.value_or(usualTray(screen));
    const QRect room = screen.free.adjusted(margin, margin, -margin, -margin);
    QRect place(QPoint(), size.boundedTo(room.size()));
    place.moveTopLeft(point - QPoint(place.width() / 2, place.height() / 2));
    switch (edgeOf(screen.free, point)) {
    case Qt::TopEdge:
        place.moveTop(point.y() + iconReach);
        break;
    case Qt::BottomEdge:
        place.moveBottom(point.y() - iconReach);
        break;
    case Qt::LeftEdge:
        place.moveLeft(point.x() + iconReach);
        break;
    case Qt::RightEdge:
        place.moveRight(point.x() - iconReach);
        break;
    }
    place.moveRight(std::min(place.right(), room.right()));
    place.moveBottom(std::min(place.bottom(), room.bottom()));
    place.moveLeft(std::max(place.left(), room.left()));
    place.moveTop(std::max(place.top(), room.top()));
    return place;
}

}  // namespace TarnwickDirect

#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

namespace TarnwickDirect {

/// A screen in logical pixels: all of it, and the part that the desktop's own panels leave free.
struct ScreenArea {
    QRect whole;
    QRect free;
};

/// Where the panel goes that a click at `click` opens: beside the edge that the tray lies at, as
/// near to the click as the free area of its screen lets it. Where there was no click, it goes to
/// the end of the edge with the desktop's panel on the first screen, where trays are. The size is
/// cut to what is free. Requires: there is a screen. Safe from any thread.
QRect panelPlace(const QSize& size, std::optional<QPoint> click, const QList<ScreenArea>& screens);

}  // namespace TarnwickDirect

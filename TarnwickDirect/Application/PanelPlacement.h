#pragma once

#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>

#include <optional>

namespace TarnwickDirect {

/// A screen in logical pixels, and the part not reserved by the desktop's panels.
struct ScreenArea {
    QRect whole;
    QRect free;
};

/// The panel's place for a click: beside the tray's edge, in the free area and as close to the
/// click as possible. Without a click: the usual corner of a tray on the first screen. Limits the
/// size to the free area. Requires: at least one screen. Safe from any thread.
QRect panelPlace(const QSize& size, std::optional<QPoint> click, const QList<ScreenArea>& screens);

}  // namespace TarnwickDirect

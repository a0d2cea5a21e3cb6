#pragma once

#include <QColor>
#include <QPixmap>
#include <QSizeF>

#include <optional>

class QPainter;

namespace Tarnwick {

/// A drawing of the resource bundle and how it is to appear.
struct Drawing {
    QString path;
    std::optional<QColor> tint;         ///< Nothing leaves the drawing in its own colors.
    std::optional<double> strokeWidth;  ///< Of the outlines, in units of the drawing's grid.
};

/// Renders the drawing at this size in logical pixels for a device with `ratio` times as many;
/// cached. Null when there is no such drawing or it is none.
QPixmap rendered(const Drawing& drawing, const QSizeF& size, double ratio);

/// Draws it at the rectangle's place moved to whole device pixels. Returns whether there is such a
/// drawing.
bool draw(QPainter& painter, const QRectF& rectangle, const Drawing& drawing);

}  // namespace Tarnwick

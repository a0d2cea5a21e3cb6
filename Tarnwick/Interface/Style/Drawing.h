#pragma once

#include <QColor>
#include <QPixmap>
#include <QSizeF>

#include <optional>

class QPainter;

namespace Tarnwick {

/// A drawing of the resource bundle and its appearance.
struct Drawing {
    QString path;
    std::optional<QColor> tint;         ///< Nothing keeps the drawing's own colors.
    std::optional<double> strokeWidth;  ///< Of the outlines, in units of the drawing's grid.
};

/// Renders the drawing at this size in logical pixels and this device pixel ratio. Cached. Null if
/// there is no such drawing or it is invalid.
QPixmap rendered(const Drawing& drawing, const QSizeF& size, double ratio);

/// Draws it aligned to device pixels. Returns whether the drawing exists.
bool draw(QPainter& painter, const QRectF& rectangle, const Drawing& drawing);

}  // namespace Tarnwick

#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QPainter>

namespace Tarnwick {

/// Draws on whole device pixels at any scale factor. Rectangles are in logical pixels.
namespace Painting {

/// The rectangle with its edges moved to the nearest device pixels.
QRectF aligned(const QPainter& painter, const QRectF& rectangle);

void fillRounded(QPainter& painter, const QRectF& rectangle, double radius, const QColor& color);

/// Strokes the inside of the rectangle's edge. `radius` is the outer one.
void strokeInside(
    QPainter& painter, const QRectF& rectangle, double radius, double width, const QColor& color);

/// One device pixel high, its upper edge at `y`.
void hairline(QPainter& painter, double x, double y, double width, const QColor& color);

/// One line of text at the top of the rectangle, not elided.
void text(
    QPainter& painter,
    const QRectF& line,
    const QString& text,
    const LineStyle& style,
    const QColor& color,
    Qt::AlignmentFlag alignment = Qt::AlignLeft);

double width(const QString& text, const LineStyle& style);

/// A rounded mask for windows that cannot be translucent.
QRegion roundedShape(const QSize& size, double radius);

}  // namespace Painting

}  // namespace Tarnwick

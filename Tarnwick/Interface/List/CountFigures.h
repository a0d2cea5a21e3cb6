#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QPointF>
#include <QString>

class QPainter;

namespace Tarnwick {

/// Draws counts such as "2/2/3" in cells of equal width, so that they form columns: the digits of
/// Geist differ in width.
namespace CountFigures {

/// In multiples of the font's size.
double widthInEm(const QString& label);

/// `topLeft` is the left edge of the first cell and the top of the line.
void draw(
    QPainter& painter,
    const QPointF& topLeft,
    const QString& label,
    const LineStyle& style,
    const QColor& color);

}  // namespace CountFigures

}  // namespace Tarnwick

#pragma once

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QPointF>
#include <QString>

class QPainter;

namespace Tarnwick {

/// Counts such as "2/2/3", drawn figure by figure in cells of equal width: the figures of Geist are
/// not equally wide, and counts below each other shall stand in columns.
namespace CountFigures {

/// The width of a count in multiples of the font's size.
double widthInEm(const QString& label);

/// Draws it with the first cell's left edge and the line's top at `topLeft`.
void draw(
    QPainter& painter,
    const QPointF& topLeft,
    const QString& label,
    const LineStyle& style,
    const QColor& color);

}  // namespace CountFigures

}  // namespace Tarnwick

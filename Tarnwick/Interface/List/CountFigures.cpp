#include "Tarnwick/Interface/List/CountFigures.h"

#include "Tarnwick/Interface/Style/Painting.h"

#include <QFontMetricsF>
#include <QPainter>

namespace Tarnwick::CountFigures {
namespace {

double cellInEm(QChar character)
{
    constexpr double figure = 0.64;
    constexpr double sign = 0.43;
    return character.isDigit() ? figure : sign;
}

}  // namespace

double widthInEm(const QString& label)
{
    double width = 0;
    for (const QChar character : label) {
        width += cellInEm(character);
    }
    return width;
}

void draw(
    QPainter& painter,
    const QPointF& topLeft,
    const QString& label,
    const LineStyle& style,
    const QColor& color)
{
    const QFontMetricsF metrics(style.font);
    const double baseline =
        Painting::aligned(painter, QRectF(0, topLeft.y() + style.baseline, 0, 0)).top();
    painter.setFont(style.font);
    painter.setPen(color);
    double x = topLeft.x();
    for (const QChar character : label) {
        const double cell = cellInEm(character) * style.pixelSize;
        const double inset = (cell - metrics.horizontalAdvance(character)) / 2;
        painter.drawText(QPointF(x + inset, baseline), QString(character));
        x += cell;
    }
}

}  // namespace Tarnwick::CountFigures

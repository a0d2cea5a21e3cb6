#include "Tarnwick/Interface/Style/Painting.h"

#include <QFontMetricsF>
#include <QPainterPath>
#include <QTransform>

#include <cmath>

namespace Tarnwick::Painting {
namespace {

double toPixel(double value, double scale, double offset)
{
    return (std::round(value * scale + offset) - offset) / scale;
}

}  // namespace

QRectF aligned(const QPainter& painter, const QRectF& rectangle)
{
    const QTransform& transform = painter.deviceTransform();
    const QPointF topLeft(
        toPixel(rectangle.left(), transform.m11(), transform.dx()),
        toPixel(rectangle.top(), transform.m22(), transform.dy()));
    const QPointF bottomRight(
        toPixel(rectangle.right(), transform.m11(), transform.dx()),
        toPixel(rectangle.bottom(), transform.m22(), transform.dy()));
    return {topLeft, bottomRight};
}

void fillRounded(QPainter& painter, const QRectF& rectangle, double radius, const QColor& color)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, radius > 0);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(aligned(painter, rectangle), radius, radius);
    painter.restore();
}

void strokeInside(
    QPainter& painter, const QRectF& rectangle, double radius, double width, const QColor& color)
{
    const double scale = painter.deviceTransform().m11();
    const double thickness = std::max(1.0, std::round(width * scale)) / scale;
    const QRectF outer = aligned(painter, rectangle);
    const QRectF inner = outer.adjusted(thickness, thickness, -thickness, -thickness);
    const double innerRadius = std::max(0.0, radius - thickness);
    QPainterPath path;
    path.addRoundedRect(outer, radius, radius);
    path.addRoundedRect(inner, innerRadius, innerRadius);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(path, color);
    painter.restore();
}

void hairline(QPainter& painter, double x, double y, double width, const QColor& color)
{
    const double pixel = 1 / painter.deviceTransform().m22();
    const QRectF line = aligned(painter, QRectF(x, y, width, 0));
    painter.fillRect(QRectF(line.left(), line.top(), line.width(), pixel), color);
}

void text(
    QPainter& painter,
    const QRectF& line,
    const QString& text,
    const LineStyle& style,
    const QColor& color,
    Qt::AlignmentFlag alignment)
{
    double x = line.left();
    if (alignment == Qt::AlignRight) {
        x = line.right() - width(text, style);
    } else if (alignment == Qt::AlignHCenter) {
        x = line.left() + (line.width() - width(text, style)) / 2;
    }
    const QPointF origin = aligned(painter, QRectF(x, line.top() + style.baseline, 0, 0)).topLeft();
    painter.setFont(style.font);
    painter.setPen(color);
    painter.drawText(origin, text);
}

double width(const QString& text, const LineStyle& style)
{
    return QFontMetricsF(style.font).horizontalAdvance(text);
}

QRegion roundedShape(const QSize& size, double radius)
{
    // Row by row, the pixels whose centers are inside.
    const int height = static_cast<int>(std::ceil(radius));
    QRegion shape(0, height, size.width(), size.height() - 2 * height);
    for (int row = 0; row < height; ++row) {
        const double rise = radius - row - 0.5;
        const double inset = radius - std::sqrt(radius * radius - rise * rise);
        const int left = static_cast<int>(std::round(inset));
        const int width = size.width() - 2 * left;
        shape += QRect(left, row, width, 1);
        shape += QRect(left, size.height() - 1 - row, width, 1);
    }
    return shape;
}

}  // namespace Tarnwick::Painting

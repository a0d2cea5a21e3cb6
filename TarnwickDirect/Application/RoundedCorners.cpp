#include "TarnwickDirect/Application/RoundedCorners.h"

#include "Tarnwick/Interface/Style/Painting.h"

#include <QPainter>
#include <QPainterPath>

namespace TarnwickDirect {

RoundedCorners::RoundedCorners(QWidget* window)
    : QWidget(window)
{
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
}

void RoundedCorners::setTranslucent(bool isTranslucent)
{
    _isTranslucent = isTranslucent;
    update();
}

QRegion RoundedCorners::squares(const QSize& size)
{
    const int right = size.width() - radius;
    const int bottom = size.height() - radius;
    QRegion region;
    for (const QPoint& corner :
         {QPoint(0, 0), QPoint(right, 0), QPoint(0, bottom), QPoint(right, bottom)}) {
        region += QRect(corner, QSize(radius, radius));
    }
    return region;
}

QRegion RoundedCorners::shape(const QSize& size)
{
    return Tarnwick::Painting::roundedShape(size, radius);
}

void RoundedCorners::paintEvent(QPaintEvent* /*event*/)
{
    QPainterPath corners;
    corners.addRect(rect());
    corners.addRoundedRect(rect(), radius, radius);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (_isTranslucent) {
        painter.setCompositionMode(QPainter::CompositionMode_DestinationOut);
    }
    painter.fillPath(corners, Qt::black);
}

void RoundedCorners::resizeEvent(QResizeEvent* /*event*/)
{
    // The mask keeps scrolling below the overlay cheap.
    setMask(squares(size()));
}

}  // namespace TarnwickDirect

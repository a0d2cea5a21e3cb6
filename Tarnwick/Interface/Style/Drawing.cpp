#include "Tarnwick/Interface/Style/Drawing.h"

#include "Tarnwick/Interface/Style/Painting.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <cmath>

namespace Tarnwick {
namespace {

QByteArray source(const Drawing& drawing)
{
    QFile file(drawing.path);
    if (!file.open(QIODevice::ReadOnly)) {
        return {};
    }
    QByteArray text = file.readAll();
    if (drawing.strokeWidth) {
        text.replace(
            "stroke-width=\"1.75\"",
            "stroke-width=\"" + QByteArray::number(*drawing.strokeWidth) + '"');
    }
    return text;
}

QImage render(const Drawing& drawing, const QSize& size)
{
    QSvgRenderer renderer(source(drawing));
    if (!renderer.isValid()) {
        return {};
    }
    QImage image(size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(QPointF(), QSizeF(size)));
    if (drawing.tint) {
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(image.rect(), *drawing.tint);
    }
    return image;
}

}  // namespace

QPixmap rendered(const Drawing& drawing, const QSizeF& size, double ratio)
{
    const QSize pixels(
        static_cast<int>(std::lround(size.width() * ratio)),
        static_cast<int>(std::lround(size.height() * ratio)));
    const QString key = QStringLiteral("%1 %2x%3 %4 %5 %6")
                            .arg(drawing.path)
                            .arg(pixels.width())
                            .arg(pixels.height())
                            .arg(ratio)
                            .arg(drawing.tint ? drawing.tint->name(QColor::HexArgb) : QString())
                            .arg(drawing.strokeWidth.value_or(0));
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = QPixmap::fromImage(render(drawing, pixels));
        pixmap.setDevicePixelRatio(ratio);
        QPixmapCache::insert(key, pixmap);
    }
    return pixmap;
}

bool draw(QPainter& painter, const QRectF& rectangle, const Drawing& drawing)
{
    const double ratio = painter.deviceTransform().m11();
    const QPixmap pixmap = rendered(drawing, rectangle.size(), ratio);
    if (pixmap.isNull()) {
        return false;
    }
    painter.drawPixmap(Painting::aligned(painter, rectangle).topLeft(), pixmap);
    return true;
}

}  // namespace Tarnwick

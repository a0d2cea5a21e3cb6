#include "TarnwickDirect/Tray/TarnwickMenuLabel.h"

#include "Tarnwick/Interface/Style/AppResources.h"
#include "Tarnwick/Interface/Style/Drawing.h"

#include <QPainter>

#include <optional>

namespace TarnwickDirect::TarnwickMenuLabel {
namespace {

constexpr int sizes[] = {16, 22, 24, 32, 44, 48, 64};

/// A size with a simplified drawing of its own.
constexpr int smallSize = 16;

struct Colors {
    std::optional<QColor> drop;  ///< Nothing keeps the drawing's own colors.
    QColor dot;
};

/// In pixels: the dot's diameter and the clear space around it.
struct Dot {
    double diameter = 0;
    double gap = 0;
};

Colors colorsOn(Background background)
{
    switch (background) {
    case Background::unknown:
        return {std::nullopt, QColor(0xE5, 0x48, 0x4D)};
    case Background::dark:
        return {QColor(0xF2, 0xF5, 0xF4), QColor(0xFF, 0x6B, 0x6B)};
    case Background::light:
        return {QColor(0x16, 0x21, 0x1E), QColor(0xCF, 0x22, 0x2E)};
    }
    return {};
}

Dot dotFor(int size)
{
    if (size < 22) {
        return {size * 6 / 16.0, size / 16.0};
    }
    if (size > 32) {
        const Dot half = dotFor(size / 2);
        return {2 * half.diameter, 2 * half.gap};
    }
    if (size < 24) {
        return {8, 1.5};
    }
    return size < 32 ? Dot{8, 2} : Dot{10, 2};
}

void drawDot(QPainter& painter, int size, const QColor& color)
{
    const Dot dot = dotFor(size);
    const QRectF circle(size - dot.diameter, 0, dot.diameter, dot.diameter);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::black);
    painter.setCompositionMode(QPainter::CompositionMode_Clear);
    painter.drawEllipse(circle.adjusted(-dot.gap, -dot.gap, dot.gap, dot.gap));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setBrush(color);
    painter.drawEllipse(circle);
}

}  // namespace

Background backgroundOf(const QString& desktop)
{
    return desktop == QLatin1String("GNOME") ? Background::dark : Background::unknown;
}

QImage image(int size, Background background, Mark mark)
{
    const Colors colors = colorsOn(background);
    QString name = QStringLiteral("tarnwick-tray-");
    if (mark.isTrouble) {
        name += QStringLiteral("trouble-");
    }
    name += colors.drop ? QStringLiteral("symbolic") : QStringLiteral("color");
    if (size == smallSize) {
        name += QStringLiteral("-16");
    }
    Tarnwick::AppResources::bundle();
    const QPixmap drop = Tarnwick::rendered(
        {.path = Tarnwick::AppResources::path(name, QStringLiteral("svg")),
         .tint = colors.drop,
         .strokeWidth = std::nullopt},
        QSizeF(size, size),
        1);
    QImage image(size, size, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.drawPixmap(0, 0, drop);
    if (mark.isBlocked) {
        drawDot(painter, size, colors.dot);
    }
    return image;
}

QIcon icon(Background background, Mark mark)
{
    QIcon icon;
    for (const int size : sizes) {
        icon.addPixmap(QPixmap::fromImage(image(size, background, mark)));
    }
    return icon;
}

}  // namespace TarnwickDirect::TarnwickMenuLabel

#include "Tarnwick/Interface/List/FindPlates.h"

#include "Tarnwick/Interface/Style/Painting.h"

namespace Tarnwick {
namespace {

constexpr double radius = 3;
constexpr double aside = 1;
constexpr double belowTop = 2;
constexpr double aboveBottom = 1;

/// Adjacent boxes become one plate.
std::vector<QRectF> platesOf(const std::vector<QRectF>& letters)
{
    std::vector<QRectF> plates;
    for (const QRectF& box : letters) {
        const QRectF plate = box.adjusted(-aside, belowTop, aside, -aboveBottom);
        if (!plates.empty() && plate.left() <= plates.back().right()) {
            plates.back() = plates.back().united(plate);
        } else {
            plates.push_back(plate);
        }
    }
    return plates;
}

}  // namespace

void paintFindPlates(
    QPainter& painter,
    const std::vector<QRectF>& letters,
    const Palette& palette,
    const std::function<void()>& draw)
{
    for (const QRectF& plate : platesOf(letters)) {
        Painting::fillRounded(painter, plate, radius, palette.findMatch);
        painter.save();
        painter.setClipRect(Painting::aligned(painter, plate), Qt::IntersectClip);
        painter.setPen(palette.textPrimary);
        draw();
        painter.restore();
    }
}

}  // namespace Tarnwick

#include "Tarnwick/Interface/Style/SystemSymbol.h"

#include "Tarnwick/Interface/Style/AppResources.h"
#include "Tarnwick/Interface/Style/Drawing.h"

namespace Tarnwick {
namespace {

double strokeFor(double size)
{
    constexpr double large = 32;
    constexpr double small = 12;
    if (size >= large) {
        return 1.5;
    }
    return size <= small ? 2 : 1.75;
}

}  // namespace

void SystemSymbol::draw(QPainter& painter, const QRectF& rectangle, const QColor& foreground) const
{
    Drawing drawing{
        .path = AppResources::path(name, QStringLiteral("svg")),
        .tint = foreground,
        .strokeWidth = strokeWidth.value_or(strokeFor(rectangle.width()))};
    if (!Tarnwick::draw(painter, rectangle, drawing)) {
        drawing.path =
            AppResources::path(QStringLiteral("questionmark.square.dashed"), QStringLiteral("svg"));
        Tarnwick::draw(painter, rectangle, drawing);
    }
}

}  // namespace Tarnwick

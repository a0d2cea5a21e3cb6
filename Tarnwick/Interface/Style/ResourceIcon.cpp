#include "Tarnwick/Interface/Style/ResourceIcon.h"

#include "Tarnwick/Interface/Style/AppResources.h"
#include "Tarnwick/Interface/Style/Drawing.h"
#include "Tarnwick/Interface/Style/SystemSymbol.h"

namespace Tarnwick {

void ResourceIcon::draw(QPainter& painter, const QRectF& rectangle, const QColor& foreground) const
{
    const Drawing drawing{
        .path = AppResources::path(name, QStringLiteral("svg")),
        .tint = isTemplate ? std::optional(foreground) : std::nullopt,
        .strokeWidth = {}};
    if (!Tarnwick::draw(painter, rectangle, drawing)) {
        SystemSymbol{QStringLiteral("questionmark.square.dashed")}.draw(
            painter, rectangle, foreground);
    }
}

}  // namespace Tarnwick

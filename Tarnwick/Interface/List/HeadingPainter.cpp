#include "Tarnwick/Interface/List/HeadingPainter.h"

#include "Tarnwick/Interface/List/CountFigures.h"
#include "Tarnwick/Interface/List/HeadingWording.h"
#include "Tarnwick/Interface/Style/Painting.h"

namespace Tarnwick {
namespace {

constexpr int heightAtScale1 = 28;
constexpr int margin = 16;
constexpr int titleToCount = 6;

}  // namespace

int headingHeight()
{
    return appearance().scaled(heightAtScale1);
}

void paintHeading(QPainter& painter, const QRect& place, const GroupHeading& heading)
{
    const Palette& palette = appearance().palette();
    painter.fillRect(Painting::aligned(painter, QRectF(place)), palette.surfaceChrome);
    const double pixel = 1 / painter.deviceTransform().m22();
    const double bottom = place.top() + place.height() - pixel;
    Painting::hairline(painter, place.left(), bottom, place.width(), palette.hairline);
    if (place.top() > 0) {
        Painting::hairline(painter, place.left(), place.top(), place.width(), palette.hairline);
    }
    const LineStyle title = appearance().line(TextStyle::caption, TextWeight::bold);
    const QString text = HeadingWording::title(heading.whose);
    const double top = place.top() + (place.height() - title.height) / 2.0;
    const QRectF line(place.left() + margin, top, place.width() - 2 * margin, title.height);
    Painting::text(painter, line, text, title, palette.textSecondary);
    CountFigures::draw(
        painter,
        QPointF(line.left() + Painting::width(text, title) + titleToCount, top),
        HeadingWording::count(heading),
        appearance().line(TextStyle::caption, TextWeight::medium),
        palette.textTertiary);
}

}  // namespace Tarnwick

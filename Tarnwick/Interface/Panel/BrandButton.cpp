#include "Tarnwick/Interface/Panel/BrandButton.h"

#include "Tarnwick/Interface/Style/Painting.h"
#include "Tarnwick/Interface/Style/ResourceIcon.h"

#include <QPainter>

#include <cmath>

namespace Tarnwick {
namespace {

const QString firstRun = QStringLiteral("Tarn");
const QString secondRun = QStringLiteral("wick");

constexpr int visibleHeight = 32;
constexpr int startPadding = 4;
constexpr int endPadding = 8;
constexpr int markSize = 24;
constexpr int gap = 8;
constexpr double tracking = -0.3;

LineStyle nameStyle()
{
    LineStyle style = appearance().line(TextStyle::title, TextWeight::bold);
    style.font.setLetterSpacing(QFont::AbsoluteSpacing, tracking);
    return style;
}

}  // namespace

BrandButton::BrandButton(QWidget* parent)
    : PushButton(firstRun + secondRun, Kind::quiet, parent)
{}

QSize BrandButton::sizeHint() const
{
    const double width = startPadding + appearance().scaled(markSize) + gap
                         + Painting::width(text(), nameStyle()) + endPadding;
    return {static_cast<int>(std::ceil(width)), appearance().scaled(visibleHeight)};
}

void BrandButton::paintFace(QPainter& painter)
{
    paintQuietFill(painter);
    const Palette& palette = appearance().palette();
    const double mark = appearance().scaled(markSize);
    ResourceIcon{QStringLiteral("tarnwick-zap-inner-light-icon"), false}.draw(
        painter, QRectF(startPadding, (height() - mark) / 2, mark, mark), palette.textPrimary);

    const LineStyle line = nameStyle();
    QRectF run(startPadding + mark + gap, (height() - line.height) / 2.0, width(), line.height);
    Painting::text(painter, run, firstRun, line, palette.textPrimary);
    run.moveLeft(run.left() + Painting::width(firstRun, line));
    const QColor green = QColor::fromRgbF(0.0F, 0.5372549019607843F, 0.36470588235294116F);
    Painting::text(painter, run, secondRun, line, green);
}

}  // namespace Tarnwick

#include "Tarnwick/Interface/Panel/BrandButton.h"

#include "Tarnwick/Interface/Look/Painting.h"
#include "Tarnwick/Interface/Look/ResourceIcon.h"

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

}  // namespace

BrandButton::BrandButton(const Appearance& appearance, QWidget* parent)
    : ControlButton(appearance, parent)
{
    setAccessibleName(firstRun + secondRun);
}

LineStyle BrandButton::style() const
{
    LineStyle style = appearance().line(TextStyle::title, TextWeight::bold);
    style.font.setLetterSpacing(QFont::AbsoluteSpacing, tracking);
    return style;
}

QSize BrandButton::visibleSize() const
{
    const double width = startPadding + appearance().scaled(markSize) + gap
                         + Painting::width(firstRun + secondRun, style()) + endPadding;
    return {static_cast<int>(std::ceil(width)), appearance().scaled(visibleHeight)};
}

void BrandButton::paintVisible(QPainter& painter, const QRectF& visible)
{
    const Palette& palette = appearance().palette();
    const double filled = isDown() ? 1 : hover();
    if (filled > 0) {
        QColor fill = palette.chip;
        fill.setAlphaF(static_cast<float>(filled));
        Painting::fillRounded(painter, visible, radius(), fill);
    }
    const double mark = appearance().scaled(markSize);
    const double top = visible.top() + (visible.height() - mark) / 2;
    ResourceIcon{QStringLiteral("tarnwick-zap-inner-light-icon"), false}.draw(
        painter, QRectF(visible.left() + startPadding, top, mark, mark), palette.textPrimary);

    const LineStyle line = style();
    QRectF run(
        visible.left() + startPadding + mark + gap,
        visible.top() + (visible.height() - line.height) / 2,
        visible.width(),
        line.height);
    Painting::text(painter, run, firstRun, line, palette.textPrimary);
    run.moveLeft(run.left() + Painting::width(firstRun, line));
    const QColor green = QColor::fromRgbF(0.0F, 0.5372549019607843F, 0.36470588235294116F);
    Painting::text(painter, run, secondRun, line, green);
}

}  // namespace Tarnwick

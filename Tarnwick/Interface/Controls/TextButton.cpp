#include "Tarnwick/Interface/Controls/TextButton.h"

#include "Tarnwick/Interface/Look/Painting.h"

#include <QPainter>

#include <cmath>

namespace Tarnwick {

TextButton::TextButton(const QString& text, const Appearance& appearance, QWidget* parent)
    : ControlButton(appearance, parent)
{
    setText(text);
    setAccessibleName(text);
    setCursor(Qt::PointingHandCursor);
}

QSize TextButton::visibleSize() const
{
    const LineStyle style = appearance().line(TextStyle::footnote, TextWeight::medium);
    return {static_cast<int>(std::ceil(Painting::width(text(), style))), style.height};
}

void TextButton::paintVisible(QPainter& painter, const QRectF& visible)
{
    const Palette& palette = appearance().palette();
    const LineStyle style = appearance().line(TextStyle::footnote, TextWeight::medium);
    const QColor colour =
        isEnabled() ? mixed(palette.textLink, palette.textPrimary, hover()) : palette.textTertiary;
    Painting::text(painter, visible, text(), style, colour);
}

}  // namespace Tarnwick

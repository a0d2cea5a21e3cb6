#include "Tarnwick/Interface/Controls/PushButton.h"

#include "Tarnwick/Interface/Look/Painting.h"
#include "Tarnwick/Interface/Look/SystemSymbol.h"

#include <QPainter>

#include <cmath>

namespace Tarnwick {

PushButton::PushButton(
    const QString& text, Kind kind, const Appearance& appearance, QWidget* parent, Size size)
    : ControlButton(appearance, parent)
    , _kind(kind)
    , _size(size)
{
    setText(text);
    setAccessibleName(text);
}

void PushButton::setSymbol(const QString& symbol)
{
    _symbol = symbol;
    updateGeometry();
}

LineStyle PushButton::style() const
{
    return appearance().line(
        _size == Size::regular ? TextStyle::body : TextStyle::subheadline, TextWeight::medium);
}

int PushButton::padding() const
{
    return _size == Size::regular ? 14 : 10;
}

double PushButton::radius() const
{
    return _size == Size::regular ? 8 : 6;
}

QSize PushButton::visibleSize() const
{
    const int height = appearance().scaled(_size == Size::regular ? 32 : 26);
    if (!_symbol.isEmpty()) {
        return {height, height};
    }
    const int textWidth = static_cast<int>(std::ceil(Painting::width(text(), style())));
    return {textWidth + 2 * padding(), height};
}

void PushButton::paintVisible(QPainter& painter, const QRectF& visible)
{
    const Palette& palette = appearance().palette();
    const bool isPrimary = _kind == Kind::primary && isEnabled();
    const double pressed = isDown() ? 0.16 : hover() * 0.08;
    const QColor base = isPrimary ? palette.accent : palette.button;
    const QColor towards = isPrimary ? palette.onAccent : palette.textPrimary;
    Painting::fillRounded(painter, visible, radius(), mixed(base, towards, pressed));

    QColor foreground = isPrimary ? palette.onAccent : palette.textPrimary;
    if (!isPrimary) {
        QColor line = palette.buttonLine;
        if (!isEnabled()) {
            foreground = palette.textTertiary;
            line.setAlphaF(0.5F);
        }
        Painting::strokeInside(painter, visible, radius(), 1, line);
    }
    if (!_symbol.isEmpty()) {
        const int size = appearance().scaled(16);
        const QRectF icon(
            visible.center().x() - size / 2.0, visible.center().y() - size / 2.0, size, size);
        SystemSymbol{_symbol}.draw(painter, icon, foreground);
        return;
    }
    const LineStyle line = style();
    const QRectF textLine(
        visible.left(),
        visible.top() + (visible.height() - line.height) / 2,
        visible.width(),
        line.height);
    Painting::text(painter, textLine, text(), line, foreground, Qt::AlignHCenter);
}

}  // namespace Tarnwick

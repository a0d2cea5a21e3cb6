#include "Tarnwick/Interface/Controls/IconButton.h"

#include "Tarnwick/Interface/Controls/AccessibleIconButton.h"
#include "Tarnwick/Interface/Look/Painting.h"
#include "Tarnwick/Interface/Look/SystemSymbol.h"

#include <QAccessible>
#include <QPainter>

#include <utility>

namespace Tarnwick {

IconButton::IconButton(
    const QString& symbol,
    const QString& accessibleName,
    Extent extent,
    const Appearance& appearance,
    QWidget* parent)
    : ControlButton(appearance, parent)
    , _symbol(symbol)
    , _extent(extent)
{
    installAccessibleIconButton();
    setAccessibleName(accessibleName);
}

void IconButton::setOpen(bool isOpen)
{
    if (std::exchange(_isOpen, isOpen) != isOpen && _isToggle) {
        QAccessible::State changed;
        changed.pressed = true;
        QAccessibleStateChangeEvent event(this, changed);
        QAccessible::updateAccessibility(&event);
    }
    update();
}

QSize IconButton::visibleSize() const
{
    const int side = appearance().scaled(_extent.box);
    return {side, side};
}

void IconButton::paintVisible(QPainter& painter, const QRectF& visible)
{
    const Palette& palette = appearance().palette();
    const double filled = _isOpen || isDown() ? 1 : hover();
    if (filled > 0) {
        QColor fill = palette.chip;
        fill.setAlphaF(static_cast<float>(filled));
        Painting::fillRounded(painter, visible, radius(), fill);
    }
    const QColor colour = isEnabled() ? mixed(palette.textSecondary, palette.textPrimary, filled)
                                      : palette.textTertiary;
    const double size = appearance().scaled(_extent.icon);
    const QRectF icon(visible.center().x() - size / 2, visible.center().y() - size / 2, size, size);
    SystemSymbol{_symbol}.draw(painter, icon, colour);
}

}  // namespace Tarnwick

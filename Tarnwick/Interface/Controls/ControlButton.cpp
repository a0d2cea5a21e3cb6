#include "Tarnwick/Interface/Controls/ControlButton.h"

#include "Tarnwick/Interface/Look/Painting.h"

#include <QKeyEvent>
#include <QPainter>

namespace Tarnwick {
namespace {

constexpr int ringGap = 2;
constexpr int ringWidth = 2;
constexpr int ringRoom = ringGap + ringWidth;

}  // namespace

ControlButton::ControlButton(const Appearance& appearance, QWidget* parent)
    : QAbstractButton(parent)
    , _appearance(appearance)
    , _hover(*this, appearance)
{
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(Qt::WA_Hover);
    connect(&appearance, &Appearance::changed, this, [this] {
        updateGeometry();
        update();
    });
}

void ControlButton::place(const QRect& visible)
{
    setGeometry(visible.adjusted(-ringRoom, -ringRoom, ringRoom, ringRoom));
}

QRect ControlButton::visibleRect() const
{
    return rect().adjusted(ringRoom, ringRoom, -ringRoom, -ringRoom);
}

QSize ControlButton::sizeHint() const
{
    return visibleSize() + QSize(2 * ringRoom, 2 * ringRoom);
}

bool ControlButton::hitButton(const QPoint& position) const
{
    return visibleRect().contains(position);
}

void ControlButton::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const QRectF visible(visibleRect());
    paintVisible(painter, visible);
    if (hasFocus() && _showsRing) {
        Painting::strokeInside(
            painter, QRectF(rect()), radius() + ringRoom, ringWidth, _appearance.palette().accent);
    }
}

void ControlButton::enterEvent(QEnterEvent* event)
{
    _hover.setOn(isEnabled());
    QAbstractButton::enterEvent(event);
}

void ControlButton::leaveEvent(QEvent* event)
{
    _hover.setOn(false);
    QAbstractButton::leaveEvent(event);
}

void ControlButton::focusInEvent(QFocusEvent* event)
{
    _showsRing = event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason
                 || event->reason() == Qt::ShortcutFocusReason;
    QAbstractButton::focusInEvent(event);
}

void ControlButton::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        click();
        return;
    }
    QAbstractButton::keyPressEvent(event);
}

void ControlButton::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled()) {
        _hover.setOn(false);
    }
    QAbstractButton::changeEvent(event);
}

}  // namespace Tarnwick

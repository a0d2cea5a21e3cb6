#include "Tarnwick/Interface/Panel/RiseEffect.h"

#include "Tarnwick/Interface/Controls/Fade.h"
#include "Tarnwick/Interface/Style/Appearance.h"

#include <QPainter>

namespace Tarnwick {
RiseEffect::RiseEffect(QObject* parent)
    : QGraphicsEffect(parent)
{
    setEnabled(false);
    _animation.setDuration(Fade::slideMilliseconds);
    _animation.setEasingCurve(QEasingCurve::OutCubic);
    _animation.setStartValue(0.0);
    _animation.setEndValue(1.0);
    connect(&_animation, &QVariantAnimation::valueChanged, this, [this] { update(); });
    connect(&_animation, &QVariantAnimation::finished, this, [this] { setEnabled(false); });
}

void RiseEffect::start()
{
    if (!appearance().reducedMotion()) {
        setEnabled(true);
        _animation.start();
    }
}

void RiseEffect::stop()
{
    _animation.stop();
    setEnabled(false);
}

void RiseEffect::draw(QPainter* painter)
{
    const double value = _animation.currentValue().toDouble();
    painter->setOpacity(value);
    painter->fillRect(sourceBoundingRect(), appearance().palette().scrim);
    QPoint offset;
    const QPixmap card = sourcePixmap(Qt::LogicalCoordinates, &offset);
    painter->drawPixmap(QPointF(offset) + QPointF(0, distance * (1 - value)), card);
}

}  // namespace Tarnwick

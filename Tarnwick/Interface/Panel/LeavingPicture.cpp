#include "Tarnwick/Interface/Panel/LeavingPicture.h"

#include "Tarnwick/Interface/Controls/Fade.h"
#include "Tarnwick/Interface/Panel/RiseEffect.h"

#include <QPainter>

namespace Tarnwick {

LeavingPicture::LeavingPicture(const QPixmap& card, const QColor& scrim, QWidget* parent)
    : QWidget(parent)
    , _card(card)
    , _scrim(scrim)
{
    setObjectName(QStringLiteral("leavingCard"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setGeometry(parent->rect());
    _animation.setDuration(Fade::slideMilliseconds);
    _animation.setEasingCurve(QEasingCurve::OutCubic);
    _animation.setStartValue(1.0);
    _animation.setEndValue(0.0);
    connect(
        &_animation, &QVariantAnimation::valueChanged, this, qOverload<>(&LeavingPicture::update));
    connect(&_animation, &QVariantAnimation::finished, this, &QObject::deleteLater);
    _animation.start();
}

void LeavingPicture::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const double share = _animation.currentValue().toDouble();
    painter.setOpacity(share);
    painter.fillRect(rect(), _scrim);
    painter.drawPixmap(QPointF(0, RiseEffect::distance * (1 - share)), _card);
}

}  // namespace Tarnwick

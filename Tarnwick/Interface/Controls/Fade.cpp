#include "Tarnwick/Interface/Controls/Fade.h"

#include "Tarnwick/Interface/Look/Appearance.h"

#include <QColor>
#include <QWidget>

namespace Tarnwick {

Fade::Fade(QWidget& widget, const Appearance& appearance, int milliseconds)
    : _widget(widget)
    , _appearance(appearance)
{
    _animation.setDuration(milliseconds);
    _animation.setEasingCurve(QEasingCurve::OutCubic);
    QObject::connect(&_animation, &QVariantAnimation::valueChanged, &_animation, [this] {
        _value = _animation.currentValue().toDouble();
        _widget.update();
    });
}

void Fade::setOn(bool isOn)
{
    if (_isOn == isOn) {
        return;
    }
    _isOn = isOn;
    const double end = isOn ? 1 : 0;
    _animation.stop();
    if (_appearance.reducedMotion() || !_widget.isVisible()) {
        _value = end;
        _widget.update();
        return;
    }
    _animation.setStartValue(_value);
    _animation.setEndValue(end);
    _animation.start();
}

QColor mixed(const QColor& from, const QColor& to, double share)
{
    const auto between = [share](float first, float second) {
        return first + (second - first) * static_cast<float>(share);
    };
    return QColor::fromRgbF(
        between(from.redF(), to.redF()),
        between(from.greenF(), to.greenF()),
        between(from.blueF(), to.blueF()),
        between(from.alphaF(), to.alphaF()));
}

}  // namespace Tarnwick

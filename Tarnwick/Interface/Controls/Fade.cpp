#include "Tarnwick/Interface/Controls/Fade.h"

#include "Tarnwick/Interface/Style/Appearance.h"

#include <QColor>
#include <QWidget>

#include <utility>

namespace Tarnwick {

Fade::Fade(QWidget& widget, int milliseconds)
    : Fade(widget, milliseconds, [&widget] { widget.update(); })
{}

Fade::Fade(QWidget& widget, int milliseconds, std::function<void()> follow)
    : _widget(widget)
    , _follow(std::move(follow))
{
    _animation.setDuration(milliseconds);
    _animation.setEasingCurve(QEasingCurve::OutCubic);
    const auto takeValue = [this] { set(_animation.currentValue().toDouble()); };
    QObject::connect(&_animation, &QVariantAnimation::valueChanged, &_animation, takeValue);
    // An animation from a value to itself has no steps.
    QObject::connect(&_animation, &QVariantAnimation::finished, &_animation, takeValue);
}

void Fade::set(double value)
{
    _value = value;
    _follow();
}

void Fade::setOn(bool isOn)
{
    if (_isOn == isOn) {
        return;
    }
    _isOn = isOn;
    const double end = isOn ? 1 : 0;
    _animation.stop();
    if (appearance().reducedMotion() || !_widget.isVisible()) {
        set(end);
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

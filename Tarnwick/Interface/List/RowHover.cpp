#include "Tarnwick/Interface/List/RowHover.h"

#include "Tarnwick/Interface/Controls/Fade.h"
#include "Tarnwick/Interface/Style/Appearance.h"

#include <QWidget>

namespace Tarnwick {

RowHover::RowHover(QWidget& widget)
    : _widget(widget)
{
    _animation.setDuration(Fade::fillMilliseconds);
    _animation.setStartValue(0.0);
    _animation.setEndValue(1.0);
    QObject::connect(&_animation, &QVariantAnimation::valueChanged, &_animation, [this] {
        _progress = _animation.currentValue().toDouble();
        _widget.update();
    });
}

void RowHover::setRow(const QModelIndex& index)
{
    if (_current == index) {
        return;
    }
    const double left = fill(_current);
    _animation.stop();
    _before = _current;
    _beforeFill = left;
    _current = index;
    if (appearance().reducedMotion() || !_widget.isVisible()) {
        _progress = 1;
    } else {
        _progress = 0;
        _animation.start();
    }
    _widget.update();
}

double RowHover::fill(const QModelIndex& index) const
{
    if (!index.isValid()) {
        return 0;
    }
    if (_current == index) {
        return _progress;
    }
    return _before == index ? _beforeFill * (1 - _progress) : 0;
}

}  // namespace Tarnwick

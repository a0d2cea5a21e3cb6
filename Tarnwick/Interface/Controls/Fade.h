#pragma once

#include <QVariantAnimation>

class QWidget;

namespace Tarnwick {

class Appearance;

/// A number between 0 and 1 that goes to either end in a moment, repainting its widget on the way;
/// at once where the desktop wants no motion or the widget is out of sight. Main thread only.
class Fade {
public:
    /// How long fills of buttons and rows take.
    static constexpr int fillMilliseconds = 80;
    /// How long what slides or rises takes.
    static constexpr int slideMilliseconds = 120;

    Fade(QWidget& widget, const Appearance& appearance, int milliseconds = fillMilliseconds);

    void setOn(bool isOn);

    double value() const { return _value; }

    bool isOn() const { return _isOn; }

private:
    QWidget& _widget;
    const Appearance& _appearance;
    QVariantAnimation _animation;
    double _value = 0;
    bool _isOn = false;
};

/// The colour between two, `share` of the way from the first.
QColor mixed(const QColor& from, const QColor& to, double share);

}  // namespace Tarnwick

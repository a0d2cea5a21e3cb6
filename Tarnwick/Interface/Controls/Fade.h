#pragma once

#include <QVariantAnimation>

#include <functional>

class QWidget;

namespace Tarnwick {

/// A number between 0 and 1 that goes to either end in a moment, repainting its widget on the way;
/// at once where the desktop wants no motion or the widget is out of sight. Main thread only.
class Fade {
public:
    /// How long fills of buttons and rows take.
    static constexpr int fillMilliseconds = 80;
    /// How long what slides or rises takes.
    static constexpr int slideMilliseconds = 120;

    explicit Fade(QWidget& widget, int milliseconds = fillMilliseconds);

    /// The same for a number that `follow` is told of instead.
    Fade(QWidget& widget, int milliseconds, std::function<void()> follow);

    void setOn(bool isOn);

    double value() const { return _value; }

    bool isOn() const { return _isOn; }

private:
    void set(double value);

    QWidget& _widget;
    std::function<void()> _follow;
    QVariantAnimation _animation;
    double _value = 0;
    bool _isOn = false;
};

/// The color between two, `share` of the way from the first.
QColor mixed(const QColor& from, const QColor& to, double share);

}  // namespace Tarnwick

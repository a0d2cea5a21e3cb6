#pragma once

#include <QVariantAnimation>

#include <functional>

class QWidget;

namespace Tarnwick {

/// Animates a number between 0 and 1 and repaints its widget. Jumps at once if the desktop wants no
/// motion or the widget is hidden. Main thread only.
class Fade {
public:
    /// The duration of fills of buttons and rows.
    static constexpr int fillMilliseconds = 80;
    /// The duration of sliding and rising.
    static constexpr int slideMilliseconds = 120;

    explicit Fade(QWidget& widget, int milliseconds = fillMilliseconds);

    /// Calls `follow` with the number instead of repainting.
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

/// Blends the colors: 0 is `from`, 1 is `to`.
QColor mixed(const QColor& from, const QColor& to, double share);

}  // namespace Tarnwick

#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QWidget>

namespace Tarnwick {

/// The base of what moves to say that something is under way. It moves only while it can be seen,
/// and stands still where the desktop wants no motion. Main thread only.
class Indicator : public QWidget {
public:
    explicit Indicator(QWidget* parent);

    bool isRunning() const { return _timer.isActive(); }

protected:
    /// How far the motion is in its present round of so many milliseconds: from 0 to below 1.
    double phase(int milliseconds) const;

    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    QBasicTimer _timer;
    QElapsedTimer _since;
};

}  // namespace Tarnwick

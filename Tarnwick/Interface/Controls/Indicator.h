#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QWidget>

namespace Tarnwick {

/// Base of activity indicators. Animates only while visible, if motion is on. Main thread only.
class Indicator : public QWidget {
public:
    explicit Indicator(QWidget* parent);

    bool isRunning() const { return _timer.isActive(); }

protected:
    /// The progress of the current round of this duration: from 0 to below 1.
    double phase(int milliseconds) const;

    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;

    void hideEvent(QHideEvent* /*event*/) override { _timer.stop(); }

private:
    QBasicTimer _timer;
    QElapsedTimer _since;
};

}  // namespace Tarnwick

#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QWidget>

namespace Tarnwick {

class Appearance;

/// A thin bar of unknown length to go: a third of it sweeps along. It runs only while it can be
/// seen; where the desktop wants no motion it stands full and pale.
class ProgressBar final : public QWidget {
public:
    ProgressBar(const Appearance& appearance, QWidget* parent);

    QSize sizeHint() const override;

    bool isRunning() const { return _timer.isActive(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    const Appearance& _appearance;
    QBasicTimer _timer;
    QElapsedTimer _since;
};

}  // namespace Tarnwick

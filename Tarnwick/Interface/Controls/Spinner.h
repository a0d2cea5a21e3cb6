#pragma once

#include <QBasicTimer>
#include <QElapsedTimer>
#include <QWidget>

namespace Tarnwick {

class Appearance;

/// A turning ring: something is under way. It runs only while it can be seen, and stands still as a
/// half ring where the desktop wants no motion.
class Spinner final : public QWidget {
public:
    /// `size` is the ring's diameter at text scale 1.
    Spinner(int size, const Appearance& appearance, QWidget* parent);

    QSize sizeHint() const override;

    bool isRunning() const { return _timer.isActive(); }

protected:
    void paintEvent(QPaintEvent* event) override;
    void timerEvent(QTimerEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    int _size;
    const Appearance& _appearance;
    QBasicTimer _timer;
    QElapsedTimer _since;
};

}  // namespace Tarnwick

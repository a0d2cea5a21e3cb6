#include "Tarnwick/Interface/Controls/ProgressBar.h"

#include "Tarnwick/Interface/Look/Painting.h"

#include <QPainter>
#include <QPainterPath>
#include <QTimerEvent>

namespace Tarnwick {
namespace {

constexpr int frameMilliseconds = 33;
constexpr int sweepMilliseconds = 1200;
constexpr int thickness = 4;
constexpr double radius = 2;

}  // namespace

ProgressBar::ProgressBar(const Appearance& appearance, QWidget* parent)
    : QWidget(parent)
    , _appearance(appearance)
{
    setAccessibleName(tr("Progress"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
}

QSize ProgressBar::sizeHint() const
{
    return {240, thickness};
}

void ProgressBar::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const QRectF track(rect());
    const Palette& palette = _appearance.palette();
    Painting::fillRounded(painter, track, radius, palette.strongLine);
    QColor colour = palette.textLink;
    if (!_timer.isActive()) {
        colour.setAlphaF(0.4F);
        Painting::fillRounded(painter, track, radius, colour);
        return;
    }
    const double share =
        static_cast<double>(_since.elapsed() % sweepMilliseconds) / sweepMilliseconds;
    const double length = track.width() / 3;
    const double start = share * (track.width() + length) - length;
    QPainterPath clip;
    clip.addRoundedRect(track, radius, radius);
    painter.setClipPath(clip);
    Painting::fillRounded(painter, QRectF(start, 0, length, track.height()), radius, colour);
}

void ProgressBar::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == _timer.timerId()) {
        update();
    }
}

void ProgressBar::showEvent(QShowEvent* /*event*/)
{
    if (!_appearance.reducedMotion()) {
        _since.start();
        _timer.start(frameMilliseconds, this);
    }
}

void ProgressBar::hideEvent(QHideEvent* /*event*/)
{
    _timer.stop();
}

}  // namespace Tarnwick

#include "Tarnwick/Interface/Controls/ProgressBar.h"

#include "Tarnwick/Interface/Style/Painting.h"

#include <QPainter>
#include <QPainterPath>

namespace Tarnwick {
namespace {

constexpr int sweepMilliseconds = 1200;
constexpr int thickness = 4;
constexpr double radius = 2;

}  // namespace

ProgressBar::ProgressBar(QWidget* parent)
    : Indicator(parent)
{
    setAccessibleName(tr("Progress"));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize ProgressBar::sizeHint() const
{
    return {240, thickness};
}

void ProgressBar::paintEvent(QPaintEvent* /*event*/)
{
    QPainter painter(this);
    const QRectF track(rect());
    const Palette& palette = appearance().palette();
    Painting::fillRounded(painter, track, radius, palette.strongLine);
    QColor color = palette.textLink;
    if (!isRunning()) {
        color.setAlphaF(0.4F);
        Painting::fillRounded(painter, track, radius, color);
        return;
    }
    const double length = track.width() / 3;
    const double start = phase(sweepMilliseconds) * (track.width() + length) - length;
    QPainterPath clip;
    clip.addRoundedRect(track, radius, radius);
    painter.setClipPath(clip);
    Painting::fillRounded(painter, QRectF(start, 0, length, track.height()), radius, color);
}

}  // namespace Tarnwick

#include "Tarnwick/Interface/Controls/ProgressBar.h"

#include "Tarnwick/Interface/Look/Painting.h"

#include <QPainter>
#include <QPainterPath>

namespace Tarnwick {
namespace {

constexpr int sweepMilliseconds = 1200;
constexpr int thickness = 4;
constexpr double radius = 2;

}  // namespace

ProgressBar::ProgressBar(const Appearance& appearance, QWidget* parent)
    : Indicator(appearance, parent)
{
    setAccessibleName(tr("Progress"));
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
    QColor colour = palette.textLink;
    if (!isRunning()) {
        colour.setAlphaF(0.4F);
        Painting::fillRounded(painter, track, radius, colour);
        return;
    }
    const double length = track.width() / 3;
    const double start = phase(sweepMilliseconds) * (track.width() + length) - length;
    QPainterPath clip;
    clip.addRoundedRect(track, radius, radius);
    painter.setClipPath(clip);
    Painting::fillRounded(painter, QRectF(start, 0, length, track.height()), radius, colour);
}

}  // namespace Tarnwick

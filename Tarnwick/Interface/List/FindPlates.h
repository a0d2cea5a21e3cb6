#pragma once

#include "Tarnwick/Interface/Style/Palette.h"

#include <QPainter>
#include <QRectF>

#include <functional>
#include <vector>

namespace Tarnwick {

/// Highlights matches in a line that has been drawn. `letters` are the boxes of the matching
/// letters, as high as the line and in ascending order. `draw` draws the line again in the pen's
/// color; it is clipped to the plates. Main thread only.
void paintFindPlates(
    QPainter& painter,
    const std::vector<QRectF>& letters,
    const Palette& palette,
    const std::function<void()>& draw);

}  // namespace Tarnwick

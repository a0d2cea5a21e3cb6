#pragma once

#include "Tarnwick/Interface/Style/Palette.h"

#include <QPainter>
#include <QRectF>

#include <functional>
#include <vector>

namespace Tarnwick {

/// Marks letters of a line that has been drawn. Each of `letters` is a box as wide as the letters
/// that match and as high as their line, in ascending order; `draw` draws the line again in the
/// pen's color, of which only what lies on the plates is seen. Main thread only.
void paintFindPlates(
    QPainter& painter,
    const std::vector<QRectF>& letters,
    const Palette& palette,
    const std::function<void()>& draw);

}  // namespace Tarnwick

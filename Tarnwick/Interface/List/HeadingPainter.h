#pragma once

#include "Tarnwick/Interface/List/GroupHeading.h"
#include "Tarnwick/Interface/Style/Appearance.h"

#include <QRect>

class QPainter;

namespace Tarnwick {

/// How high a heading is, in logical pixels. Main thread only.
int headingHeight();

/// Paints the heading of a group; the line above it is drawn everywhere but at the upper edge,
/// where `place` begins at 0 or above. Main thread only.
void paintHeading(QPainter& painter, const QRect& place, const GroupHeading& heading);

}  // namespace Tarnwick

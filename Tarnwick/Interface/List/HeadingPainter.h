#pragma once

#include "Tarnwick/Interface/List/GroupHeading.h"
#include "Tarnwick/Interface/Style/Appearance.h"

#include <QRect>

class QPainter;

namespace Tarnwick {

/// In logical pixels. Main thread only.
int headingHeight();

/// Includes the line above, unless at the top of the view. Main thread only.
void paintHeading(QPainter& painter, const QRect& place, const GroupHeading& heading);

}  // namespace Tarnwick

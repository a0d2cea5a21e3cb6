#pragma once

#include "Tarnwick/Interface/List/GroupHeading.h"
#include "Tarnwick/Interface/Style/Appearance.h"

#include <QRect>

class QPainter;

namespace Tarnwick {

/// In logical pixels. Main thread only.
int headingHeight();

/// Paints a group's heading, with a line above it unless it is at the top of the view. Main thread
/// only.
void paintHeading(QPainter& painter, const QRect& place, const GroupHeading& heading);

}  // namespace Tarnwick

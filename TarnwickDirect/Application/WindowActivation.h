#pragma once

#include "TarnwickDirect/Application/PlatformData.h"

class QWidget;

namespace TarnwickDirect {

/// Shows a window, minimised or hidden before, in front of the others and gives it the focus, as
/// far as what the launcher handed on allows that. Main thread only.
void bringToFront(QWidget& window, const PlatformData& platformData);

}  // namespace TarnwickDirect

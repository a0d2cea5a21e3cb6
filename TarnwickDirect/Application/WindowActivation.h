#pragma once

#include "TarnwickDirect/Application/PlatformData.h"

class QWidget;

namespace TarnwickDirect {

/// Shows a window in front with the focus, as far as the launcher's data allows. Main thread only.
void bringToFront(QWidget& window, const PlatformData& platformData);

}  // namespace TarnwickDirect

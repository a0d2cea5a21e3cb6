#pragma once

#include "Tarnwick/Interface/Style/TextStyle.h"

namespace Tarnwick {

/// The bundled fonts. Main thread only.
namespace AppFonts {

/// Registers the bundled fonts. Further calls do nothing; unreadable fonts are skipped.
void registerBundledFonts();

/// The size of the desktop's font in points; 10 if it has none.
double desktopPointSize();

/// The size of a style's text in points, relative to the desktop's font.
double preferredPointSize(TextStyle style);

/// Geist at this size, or the desktop's font if Geist is not bundled.
QFont font(double pointSize, TextWeight weight);

}  // namespace AppFonts

}  // namespace Tarnwick

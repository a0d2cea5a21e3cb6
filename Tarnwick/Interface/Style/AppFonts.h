#pragma once

#include "Tarnwick/Interface/Style/TextStyle.h"

#include <QFont>

namespace Tarnwick {

/// The fonts that the program brings. Main thread only.
namespace AppFonts {

/// Makes the bundle's fonts known to this process. Later calls do nothing; a font that cannot be
/// read is left out.
void registerBundledFonts();

/// The size of the desktop's own font in points. A desktop that names none counts as 10.
double desktopPointSize();

/// The size of a style's text in points, which follows the desktop's text size.
double preferredPointSize(TextStyle style);

/// Geist at this size; where it could not be bundled, the desktop's font.
QFont font(double pointSize, TextWeight weight);

}  // namespace AppFonts

}  // namespace Tarnwick

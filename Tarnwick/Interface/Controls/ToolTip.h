#pragma once

#include <QString>

namespace Tarnwick {

/// Escapes a plain text for a Qt tool tip, and wraps it if it is too wide for one line. Empty stays
/// empty. Main thread only.
QString toolTipMarkup(const QString& plain);

}  // namespace Tarnwick

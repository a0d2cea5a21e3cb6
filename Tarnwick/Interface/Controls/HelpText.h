#pragma once

#include <QString>

namespace Tarnwick {

/// A plain text in the form that Qt's help texts take: it is shown as it stands, whatever signs of
/// markup it holds, in one line where that is not too wide and else wrapped. Empty stays empty.
/// Main thread only.
QString helpMarkup(const QString& plain);

}  // namespace Tarnwick

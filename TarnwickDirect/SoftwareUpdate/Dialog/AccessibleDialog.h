#pragma once

namespace TarnwickDirect {

/// Has assistive programs know the update dialog for a dialog: for them, a widget of no particular
/// kind is a place that holds others. The second call does nothing. Main thread only.
void installAccessibleDialog();

}  // namespace TarnwickDirect

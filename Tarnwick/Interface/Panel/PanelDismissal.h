#pragma once

#include "Tarnwick/Desktop/PanelSearch.h"

namespace Tarnwick {

/// Hides the window that has the focus and, when that belongs to another one, such as a dialog of
/// the panel, that one too; where none has it, what `search` says. A dialog that belongs to no
/// other window is not the panel's and stays. Main thread only.
void dismissPanel(PanelSearch search);

}  // namespace Tarnwick

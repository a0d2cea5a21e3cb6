#pragma once

#include "Tarnwick/Desktop/PanelSearch.h"

namespace Tarnwick {

/// Hides the window with the focus and the window it belongs to, as a dialog belongs to the panel.
/// Without a focus, `search` decides. A dialog without a parent window stays. Main thread only.
void dismissPanel(PanelSearch search);

}  // namespace Tarnwick

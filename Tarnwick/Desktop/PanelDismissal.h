#pragma once

namespace Tarnwick {

/// Which windows count as the panel when none has the focus.
enum class PanelSearch {
    focusOnly,   ///< None.
    anyVisible,  ///< The first one in sight that can have the focus.
};

/// Hides the panel, so that what is opened comes to the front: the window that has the focus, or,
/// when that belongs to another one, such as an alert of the panel, both. Does nothing in a program
/// without windows. Main thread only.
void dismissPanel(PanelSearch search);

}  // namespace Tarnwick

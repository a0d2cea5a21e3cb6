#pragma once

#include <functional>

namespace Tarnwick {

/// Which windows count as the panel when none has the focus.
enum class PanelSearch {
    focusOnly,   ///< None.
    anyVisible,  ///< The first one in sight that can have the focus.
};

/// What becomes of the panel when something is opened from it.
enum class PanelFate {
    goes,
    stays,
};

/// Hides the panel, so that what is opened comes to the front. Called on the main thread.
using PanelDismissal = std::function<void(PanelSearch search)>;

}  // namespace Tarnwick

#pragma once

#include <functional>

namespace Tarnwick {

/// Which window counts as the panel when none has the focus.
enum class PanelSearch {
    focusOnly,
    anyVisible,  ///< The first visible one that can have the focus.
};

/// Whether opening something hides the panel.
enum class PanelFate {
    goes,
    stays,
};

/// Hides the panel, so that it does not cover what is opened. Called on the main thread.
using PanelDismissal = std::function<void(PanelSearch search)>;

}  // namespace Tarnwick

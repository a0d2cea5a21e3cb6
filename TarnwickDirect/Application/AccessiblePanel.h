#pragma once

namespace TarnwickDirect {

/// Has assistive programs see the panel as a window with its content alone: what rounds its corners
/// and what it is resized by is left out. To be called once, before the panel is shown.
/// Main thread only.
void installAccessiblePanel();

}  // namespace TarnwickDirect

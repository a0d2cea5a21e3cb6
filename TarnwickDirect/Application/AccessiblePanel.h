#pragma once

namespace TarnwickDirect {

/// Has assistive programs see the panel as a window with its content alone: what rounds its corners
/// and what it is resized by is left out. To be called before the panel gets its title; a second
/// call does nothing. Main thread only.
void installAccessiblePanel();

}  // namespace TarnwickDirect

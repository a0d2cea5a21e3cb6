#pragma once

namespace TarnwickDirect {

/// Hides the rounded corners and resize handles of the panel from assistive programs. Call before
/// the panel gets its title. Further calls do nothing. Main thread only.
void installAccessiblePanel();

}  // namespace TarnwickDirect

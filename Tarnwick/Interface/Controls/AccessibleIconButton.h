#pragma once

namespace Tarnwick {

/// Lets icon buttons that open and shut something tell screen readers whether they are pressed. To
/// be called before the first event of such a button; once is enough. Main thread only.
void installAccessibleIconButton();

}  // namespace Tarnwick

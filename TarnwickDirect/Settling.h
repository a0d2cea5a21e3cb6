#pragma once

namespace TarnwickDirect {

/// Waits until cancelled work has ended, child processes included, and lets the coroutines that
/// awaited it come to their ends. Main thread only; blocks.
void settle();

}  // namespace TarnwickDirect

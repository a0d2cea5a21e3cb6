#pragma once

namespace TarnwickDirect {

/// Waits until cancelled work has ended, child processes included, and lets the coroutines that
/// awaited it come to their ends. Main thread only; runs the event loop, so that a second signal
/// still ends the process at once.
void drain();

}  // namespace TarnwickDirect

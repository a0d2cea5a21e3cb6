#pragma once

namespace TarnwickDirect {

/// Waits until cancelled work, including child processes and awaiting coroutines, has ended. Runs
/// the event loop, so that a second signal still ends the process at once. Main thread only.
void drain();

}  // namespace TarnwickDirect

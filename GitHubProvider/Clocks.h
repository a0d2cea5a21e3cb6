#pragma once

#include <chrono>
#include <functional>

namespace GitHub {

/// The time of day. Must be callable from several threads.
using WallClock = std::function<std::chrono::system_clock::time_point()>;

/// A monotonic clock for durations. Must be callable from several threads.
using SteadyClock = std::function<std::chrono::steady_clock::time_point()>;

}  // namespace GitHub

#pragma once

#include <chrono>
#include <functional>

namespace GitHub {

/// Tells the time of day, by which cached rules grow old. Called from several threads at once.
using WallClock = std::function<std::chrono::system_clock::time_point()>;

/// Tells instants of a clock that nobody sets, for durations. Called from several threads at once.
using SteadyClock = std::function<std::chrono::steady_clock::time_point()>;

}  // namespace GitHub

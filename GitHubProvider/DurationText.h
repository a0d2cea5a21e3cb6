#pragma once

#include <chrono>
#include <string>

namespace GitHub {

/// A duration such as "0.25 seconds": exact and without an exponent. Safe from any thread.
std::string durationText(std::chrono::nanoseconds duration);

}  // namespace GitHub

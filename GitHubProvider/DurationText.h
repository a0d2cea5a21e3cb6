#pragma once

#include <chrono>
#include <string>

namespace GitHub {

/// Such as "0.25 seconds": the shortest decimal that tells the seconds apart from every other
/// duration, never with an exponent. Safe from any thread.
std::string durationText(std::chrono::nanoseconds duration);

}  // namespace GitHub

#pragma once

#include <chrono>
#include <optional>
#include <string_view>

namespace SampleGitHub {

/// Parses an age in a scenario file: numbers with units, such as `45s`, `20m`, `3h`, `2d4h` or
/// `6w`. Nothing for any other text and for more than a thousand years. Safe from any thread.
std::optional<std::chrono::seconds> parseAge(std::string_view text);

}  // namespace SampleGitHub

#pragma once

#include <chrono>
#include <optional>
#include <string_view>

namespace SampleGitHub {

/// How long ago something happened, as scenario files say it: a whole number and a unit, once or
/// several times over, such as `45s`, `20m`, `3h`, `2d4h` or `6w`. Yields nothing for any other
/// text, and for more than a thousand years. Safe from any thread.
std::optional<std::chrono::seconds> parseAge(std::string_view text);

}  // namespace SampleGitHub

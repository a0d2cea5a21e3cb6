#pragma once

#include <cstddef>
#include <string_view>

namespace ProcessHelper {

/// Writes all of `bytes`; ends the process with status 96 when the other end is gone.
void writeAll(int descriptor, std::string_view bytes);

/// Writes `count` bytes: 0, 1, … 250, 0, 1, …
void writePattern(int descriptor, std::size_t count);

/// The same on both streams, a little here, a little there.
void writePatternsInTurn(std::size_t onOutput, std::size_t onError);

}  // namespace ProcessHelper

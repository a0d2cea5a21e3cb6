#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace Fuzzers {

/// Ends the program, so that the fuzzer reports the input.
inline void require(bool condition)
{
    if (!condition) {
        std::abort();
    }
}

/// The fuzzer's input as text.
inline std::string_view textOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

}  // namespace Fuzzers

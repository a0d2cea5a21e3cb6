#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

namespace Fuzzers {

/// Ends the program, which the fuzzer reports together with the input that led here.
inline void require(bool condition)
{
    if (!condition) {
        std::abort();
    }
}

/// The fuzzer's bytes as a text.
inline std::string_view textOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

}  // namespace Fuzzers

#pragma once

#include "PullRequestKit/Json/Writing.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string_view>

namespace Fuzzers {

/// Ends the program, which the fuzzer reports together with the input that led here.
inline void require(bool condition)
{
    if (!condition) {
        std::abort();
    }
}

/// What the text decodes to, having made sure that it is written and read back as the same value;
/// nothing when it is refused.
template<typename Value>
std::optional<Value> roundTrip(std::string_view text)
{
    std::optional<Value> value;
    try {
        value = PullRequestKit::Json::decode<Value>(text);
    } catch (const PullRequestKit::DecodingError&) {
        return std::nullopt;
    }
    require(PullRequestKit::Json::decode<Value>(PullRequestKit::Json::encode(*value)) == *value);
    return value;
}

/// The fuzzer's bytes as a text.
inline std::string_view textOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

}  // namespace Fuzzers

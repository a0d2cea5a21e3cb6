#pragma once

#include "Fuzzers/Require.h"
#include "PullRequestKit/Json/Writing.h"

#include <optional>
#include <string_view>

namespace Fuzzers {

/// Decodes the text and requires that encoding and decoding yield the same value. Nothing when the
/// text is invalid.
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

}  // namespace Fuzzers

#pragma once

#include "PullRequestKit/Date.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Encodes keys and values of the settings file, in UTF-8 and on one line each. A value is a date
/// or a list of texts; flags, integers and single texts are lists of one. Safe from any thread.
namespace Tarnwick::IniValue {

/// Letters, digits, "-", "_" and "." are kept; other bytes become "%" and two hexadecimal digits.
std::string encodeKey(std::string_view key);

/// Nothing when the text is not an encoded key.
std::optional<std::string> decodeKey(std::string_view text);

/// The text, in quotes if necessary.
std::string encodeText(std::string_view text);

/// The texts separated by commas; "@Empty()" for none.
std::string encodeList(const std::vector<std::string>& texts);

/// Such as "@Date(2024-05-01T09:30:00Z)".
std::string encodeDate(PullRequestKit::Date date);

/// Accepts any bytes; invalid UTF-8 becomes U+FFFD.
std::vector<std::string> decodeList(std::string_view text);

/// Nothing when the text is not a date.
std::optional<PullRequestKit::Date> decodeDate(std::string_view text);

}  // namespace Tarnwick::IniValue

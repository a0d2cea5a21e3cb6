#pragma once

#include "PullRequestKit/Date.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Keys and values as they stand in the settings file, in UTF-8 and on one line each. A value is a
/// list of texts, of which flags, integers and single texts are lists of one, or a date. Pure
/// functions; safe from any thread.
namespace Tarnwick::IniValue {

/// Letters, digits and "-", "_", "." as they are, every other byte as "%" and its two digits. No
/// two keys become one.
std::string encodeKey(std::string_view key);

/// The key that this stands for; nothing where it stands for none.
std::optional<std::string> decodeKey(std::string_view text);

/// The text as it is or, where it would mean something else, in quotes.
std::string encodeText(std::string_view text);

/// The texts with commas between them; "@Empty()" for none.
std::string encodeList(const std::vector<std::string>& texts);

/// Such as "@Date(2024-05-01T09:30:00Z)".
std::string encodeDate(PullRequestKit::Date date);

/// Whatever the bytes are, they mean something; those that are not UTF-8 become U+FFFD.
std::vector<std::string> decodeList(std::string_view text);

/// Nothing where the text is no date.
std::optional<PullRequestKit::Date> decodeDate(std::string_view text);

}  // namespace Tarnwick::IniValue

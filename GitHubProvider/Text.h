#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace GitHub {

/// The bytes as UTF-8, each invalid sequence replaced by U+FFFD. Safe from any thread.
std::string decodeText(std::string_view bytes);

/// `text` without the white space and line breaks at its ends. Requires: UTF-8.
/// Safe from any thread.
std::string trimText(std::string_view text);

/// The first run of characters that are no white space, or nothing. Requires: UTF-8.
/// Safe from any thread.
std::optional<std::string> firstWord(std::string_view text);

/// Where the first occurrence of `part` ends, whatever the case of its letters, or `npos`.
/// Requires: `part` in lower-case ASCII. Safe from any thread.
std::size_t endOfAsciiIgnoringCase(std::string_view text, std::string_view part);

}  // namespace GitHub

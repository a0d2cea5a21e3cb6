#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace GitHub {

/// Decodes UTF-8 and replaces invalid sequences by U+FFFD. Safe from any thread.
std::string decodeText(std::string_view bytes);

/// `text` without white space at both ends. Requires: UTF-8. Safe from any thread.
std::string trimText(std::string_view text);

/// The first word, or nothing. Requires: UTF-8. Safe from any thread.
std::optional<std::string> firstWord(std::string_view text);

/// The end of the first occurrence of `part`, ignoring case, or `npos`. Requires: `part` in
/// lower-case ASCII. Safe from any thread.
std::size_t endOfAsciiIgnoringCase(std::string_view text, std::string_view part);

}  // namespace GitHub

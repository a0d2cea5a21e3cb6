#pragma once

#include <string>
#include <string_view>

namespace GitHubProvider {

/// The bytes as UTF-8, each invalid sequence replaced by U+FFFD. Safe from any thread.
std::string decodeText(std::string_view bytes);

/// `text` without the white space and line breaks at its ends. Requires: UTF-8.
/// Safe from any thread.
std::string trimText(std::string_view text);

}  // namespace GitHubProvider

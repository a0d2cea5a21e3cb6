#pragma once

#include <string>
#include <string_view>

namespace SampleGitHub {

/// Base 64 with the padding that GitHub's cursors have, in the alphabet that is safe in addresses.
/// Safe from any thread.
std::string encodeBase64(std::string_view bytes);

}  // namespace SampleGitHub

#pragma once

#include <string>
#include <string_view>

namespace SampleGitHub {

/// Encodes as padded, URL-safe Base64. Safe from any thread.
std::string encodeBase64(std::string_view bytes);

}  // namespace SampleGitHub

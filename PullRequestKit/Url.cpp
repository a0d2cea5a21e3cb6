#include "PullRequestKit/Url.h"

#include <algorithm>

namespace PullRequestKit {
namespace {

// ASCII letters only, independent of the locale.
constexpr bool isLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}

constexpr bool isSchemeCharacter(char c)
{
    return isLetter(c) || (c >= '0' && c <= '9') || c == '+' || c == '-' || c == '.';
}

constexpr bool isBlankOrControl(char c)
{
    const auto byte = static_cast<unsigned char>(c);
    return byte <= 0x20 || byte == 0x7F;
}

}  // namespace

std::optional<Url> parseUrl(std::string_view text)
{
    const std::size_t colon = text.find(':');
    if (colon == std::string_view::npos || colon + 1 == text.size()) {
        return std::nullopt;
    }
    const std::string_view scheme = text.substr(0, colon);
    if (scheme.empty() || !isLetter(scheme.front())
        || !std::ranges::all_of(scheme, isSchemeCharacter)
        || std::ranges::any_of(text, isBlankOrControl)) {
        return std::nullopt;
    }
    return Url{std::string(text)};
}

}  // namespace PullRequestKit

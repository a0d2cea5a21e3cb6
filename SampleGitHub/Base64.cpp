#include "SampleGitHub/Base64.h"

#include <cstdint>

namespace SampleGitHub {

std::string encodeBase64(std::string_view bytes)
{
    constexpr std::string_view alphabet =
        "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789-_";
    std::string text;
    text.reserve((bytes.size() + 2) / 3 * 4);
    for (std::size_t start = 0; start < bytes.size(); start += 3) {
        std::uint32_t group = 0;
        const std::string_view piece = bytes.substr(start, 3);
        for (std::size_t index = 0; index < 3; ++index) {
            const char byte = index < piece.size() ? piece[index] : '\0';
            group = group << 8U | static_cast<std::uint8_t>(byte);
        }
        for (std::size_t index = 0; index < 4; ++index) {
            text += index <= piece.size() ? alphabet[group >> (18 - 6 * index) & 63U] : '=';
        }
    }
    return text;
}

}  // namespace SampleGitHub

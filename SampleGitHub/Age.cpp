#include "SampleGitHub/Age.h"

#include <charconv>
#include <cstdint>

namespace SampleGitHub {
namespace {

constexpr std::int64_t largestAge = std::int64_t{1000} * 366 * 24 * 3600;

std::int64_t secondsOf(char unit)
{
    switch (unit) {
    case 's':
        return 1;
    case 'm':
        return 60;
    case 'h':
        return 3600;
    case 'd':
        return std::int64_t{24} * 3600;
    case 'w':
        return std::int64_t{7} * 24 * 3600;
    default:
        return 0;
    }
}

}  // namespace

std::optional<std::chrono::seconds> parseAge(std::string_view text)
{
    std::int64_t total = 0;
    if (text.empty()) {
        return std::nullopt;
    }
    while (!text.empty()) {
        std::uint32_t count = 0;
        const char* const first = text.data();
        const char* const end = first + text.size();
        const auto [rest, error] = std::from_chars(first, end, count);
        const std::int64_t unit = error == std::errc() && rest != end ? secondsOf(*rest) : 0;
        if (unit == 0 || count > largestAge / unit) {
            return std::nullopt;
        }
        total += count * unit;
        text.remove_prefix(static_cast<std::size_t>(rest + 1 - text.data()));
    }
    return total <= largestAge ? std::optional(std::chrono::seconds(total)) : std::nullopt;
}

}  // namespace SampleGitHub

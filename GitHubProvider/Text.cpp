#include "GitHubProvider/Text.h"

#include <algorithm>

#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace GitHub {
namespace {

icu::UnicodeString unicode(std::string_view bytes)
{
    return icu::UnicodeString::fromUTF8({bytes.data(), static_cast<std::int32_t>(bytes.size())});
}

std::string utf8(const icu::UnicodeString& text)
{
    std::string bytes;
    text.toUTF8String(bytes);
    return bytes;
}

constexpr char lowerCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

}  // namespace

std::string decodeText(std::string_view bytes)
{
    return utf8(unicode(bytes));
}

std::string trimText(std::string_view text)
{
    const icu::UnicodeString wide = unicode(text);
    std::int32_t first = 0;
    std::int32_t last = wide.length();
    while (first < last && u_isUWhiteSpace(wide.char32At(first)) != 0) {
        first = wide.moveIndex32(first, 1);
    }
    while (last > first && u_isUWhiteSpace(wide.char32At(last - 1)) != 0) {
        last = wide.moveIndex32(last, -1);
    }
    return utf8(wide.tempSubStringBetween(first, last));
}

std::optional<std::string> firstWord(std::string_view text)
{
    const icu::UnicodeString wide = unicode(trimText(text));
    std::int32_t end = 0;
    while (end < wide.length() && u_isUWhiteSpace(wide.char32At(end)) == 0) {
        end = wide.moveIndex32(end, 1);
    }
    return end > 0 ? std::optional(utf8(wide.tempSubStringBetween(0, end))) : std::nullopt;
}

std::size_t endOfAsciiIgnoringCase(std::string_view text, std::string_view part)
{
    const auto found = std::ranges::search(text, part, {}, lowerCase);
    return found.begin() == text.end() ? std::string_view::npos
                                       : static_cast<std::size_t>(found.end() - text.begin());
}

}  // namespace GitHub

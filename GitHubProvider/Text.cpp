#include "GitHubProvider/Text.h"

#include <unicode/uchar.h>
#include <unicode/unistr.h>

namespace GitHubProvider {
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

}  // namespace GitHubProvider

#include "TarnwickDirect/CommandLine/Terminal.h"

#include <QString>

#include <algorithm>
#include <memory>

#include <sys/ioctl.h>
#include <unicode/brkiter.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unistd.h>

namespace TarnwickDirect {
namespace {

icu::UnicodeString unicode(std::string_view text)
{
    return icu::UnicodeString::fromUTF8({text.data(), static_cast<std::int32_t>(text.size())});
}

std::string utf8(const icu::UnicodeString& text)
{
    std::string bytes;
    text.toUTF8String(bytes);
    return bytes;
}

/// Used when the terminal does not report its width.
constexpr int usualColumns = 80;

constexpr UChar32 replacement = 0xFFFD;
constexpr UChar32 softHyphen = 0x00AD;

bool isIn(UChar32 character, UChar32 first, UChar32 last)
{
    return character >= first && character <= last;
}

/// Selects the colored form of the character before it, which takes two columns.
constexpr UChar32 emojiSelector = 0xFE0F;

bool isSteering(UChar32 character)
{
    return u_iscntrl(character) != 0 || u_hasBinaryProperty(character, UCHAR_BIDI_CONTROL) != 0
           || character == 0x2028 || character == 0x2029;
}

/// Format characters that some terminals draw: annotation marks and hieroglyph joiners.
bool isDrawnFormat(UChar32 character)
{
    return character == softHyphen || isIn(character, 0xFFF9, 0xFFFB)
           || isIn(character, 0x13430, 0x1343F)
           || u_hasBinaryProperty(character, UCHAR_PREPENDED_CONCATENATION_MARK) != 0;
}

/// Characters that terminals draw wide although Unicode 15 did not say so: numbers and hexagrams.
bool isDrawnWide(UChar32 character)
{
    return isIn(character, 0x3248, 0x324F) || isIn(character, 0x4DC0, 0x4DFF)
           || u_hasBinaryProperty(character, UCHAR_EMOJI_PRESENTATION) != 0;
}

int columnsOf(UChar32 character)
{
    const auto category = U_GET_GC_MASK(character);
    const bool isFormat = (category & U_GC_CF_MASK) != 0;
    if ((category & (U_GC_MN_MASK | U_GC_ME_MASK)) != 0
        || (isFormat && !isDrawnFormat(character))) {
        return 0;
    }
    const int width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH || isDrawnWide(character) ? 2 : 1;
}

/// Requires: the range consists of whole clusters.
int columnsOf(const icu::UnicodeString& text, std::int32_t first, std::int32_t last)
{
    int columns = 0;
    int widthBefore = 0;
    for (std::int32_t index = first; index < last; index = text.moveIndex32(index, 1)) {
        const UChar32 character = text.char32At(index);
        const int width = character == emojiSelector ? widthBefore % 2 : columnsOf(character);
        columns += width;
        widthBefore = width;
    }
    return columns;
}

int columnsOf(const icu::UnicodeString& text)
{
    return columnsOf(text, 0, text.length());
}

const char* sequence(Style style)
{
    switch (style) {
    case Style::plain:
        return "";
    case Style::strong:
        return "\x1b[1m";
    case Style::faint:
        return "\x1b[2m";
    case Style::red:
        return "\x1b[31m";
    case Style::green:
        return "\x1b[32m";
    case Style::yellow:
        return "\x1b[33m";
    case Style::purple:
        return "\x1b[35m";
    }
    return "";
}

}  // namespace

TerminalTraits terminalTraits(int descriptor)
{
    TerminalTraits traits;
    traits.isTerminal = ::isatty(descriptor) == 1;
    if (!traits.isTerminal) {
        return traits;
    }
    const QString kind = qEnvironmentVariable("TERM");
    traits.canErase = !kind.isEmpty() && kind != QLatin1String("dumb");
    traits.hasColors = traits.canErase && qEnvironmentVariableIsEmpty("NO_COLOR");
    winsize size{};
    const bool isKnown = ::ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0;
    traits.columns = isKnown ? size.ws_col : usualColumns;
    return traits;
}

std::string styled(std::string_view text, Style style, bool hasColors)
{
    if (!hasColors || style == Style::plain || text.empty()) {
        return std::string(text);
    }
    return sequence(style) + std::string(text) + "\x1b[0m";
}

std::string singleLine(std::string_view text)
{
    icu::UnicodeString line;
    const icu::UnicodeString source = unicode(text);
    for (std::int32_t index = 0; index < source.length(); index = source.moveIndex32(index, 1)) {
        const UChar32 character = source.char32At(index);
        line.append(isSteering(character) ? replacement : character);
    }
    return utf8(line);
}

std::string message(std::string_view text)
{
    std::string result;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find('\n'), text.size());
        std::string line(text.substr(0, end));
        std::ranges::replace(line, '\t', ' ');
        if (line.ends_with('\r')) {
            line.pop_back();
        }
        result += singleLine(line);
        result += end < text.size() ? "\n" : "";
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return result;
}

int displayWidth(std::string_view text)
{
    return columnsOf(unicode(text));
}

std::string elided(std::string_view text, int columns)
{
    const icu::UnicodeString source = unicode(text);
    if (columnsOf(source) <= columns) {
        return std::string(text);
    }
    UErrorCode status = U_ZERO_ERROR;
    const std::unique_ptr<icu::BreakIterator> characters(
        icu::BreakIterator::createCharacterInstance(icu::Locale::getRoot(), status));
    if (U_FAILURE(status) != 0) {
        return "…";
    }
    characters->setText(source);
    std::int32_t kept = 0;
    int used = 0;
    for (std::int32_t end = characters->next(); end != icu::BreakIterator::DONE;
         end = characters->next()) {
        used += columnsOf(source, kept, end);
        if (used > columns - 1) {
            break;
        }
        kept = end;
    }
    return utf8(source.tempSubStringBetween(0, kept)) + "…";
}

}  // namespace TarnwickDirect

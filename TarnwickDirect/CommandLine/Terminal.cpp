#include "TarnwickDirect/CommandLine/Terminal.h"

#include <QString>

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

bool isSteering(UChar32 character)
{
    return u_iscntrl(character) != 0 || u_hasBinaryProperty(character, UCHAR_BIDI_CONTROL) != 0
           || character == 0x2028 || character == 0x2029;
}

int columnsOf(UChar32 character)
{
    const auto category = U_GET_GC_MASK(character);
    if ((category & (U_GC_MN_MASK | U_GC_ME_MASK | U_GC_CF_MASK)) != 0) {
        return 0;
    }
    const int width = u_getIntPropertyValue(character, UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
}

int columnsOf(const icu::UnicodeString& text)
{
    int columns = 0;
    for (std::int32_t index = 0; index < text.length(); index = text.moveIndex32(index, 1)) {
        columns += columnsOf(text.char32At(index));
    }
    return columns;
}

const char* sequence(Style style)
{
    switch (style) {
    case Style::plain:
        return "";
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
    traits.hasColours = traits.isTerminal && qEnvironmentVariableIsEmpty("NO_COLOR")
                        && qEnvironmentVariable("TERM") != QLatin1String("dumb");
    winsize size{};
    if (traits.isTerminal && ::ioctl(descriptor, TIOCGWINSZ, &size) == 0) {
        traits.columns = size.ws_col;
    }
    return traits;
}

std::string styled(std::string_view text, Style style, bool hasColours)
{
    if (!hasColours || style == Style::plain || text.empty()) {
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
        line.append(isSteering(character) ? UChar32{0xFFFD} : character);
    }
    return utf8(line);
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
    for (std::int32_t end = characters->next(); end != icu::BreakIterator::DONE;
         end = characters->next()) {
        if (columnsOf(source.tempSubStringBetween(0, end)) > columns - 1) {
            break;
        }
        kept = end;
    }
    return utf8(source.tempSubStringBetween(0, kept)) + "…";
}

}  // namespace TarnwickDirect

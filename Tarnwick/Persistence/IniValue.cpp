#include "Tarnwick/Persistence/IniValue.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

namespace Tarnwick::IniValue {
namespace {

constexpr std::string_view digits = "0123456789ABCDEF";
constexpr std::string_view emptyList = "@Empty()";
constexpr std::string_view datePrefix = "@Date(";

constexpr std::array<std::pair<char, char>, 5> escapes{
    {{'n', '\n'}, {'r', '\r'}, {'t', '\t'}, {'"', '"'}, {'\\', '\\'}}};

void appendHexadecimal(std::string& text, char character)
{
    const auto byte = static_cast<unsigned char>(character);
    text += digits[byte / 16];
    text += digits[byte % 16];
}

bool isControl(char character)
{
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 || byte == 0x7F;
}

bool isPlain(std::string_view text)
{
    const bool hasSpaceAtAnEnd = text.starts_with(' ') || text.ends_with(' ');
    return !text.empty() && !hasSpaceAtAnEnd && !text.starts_with('@')
           && std::ranges::none_of(text, [](char character) {
                  return isControl(character)
                         || std::string_view(",;=\"\\").find(character) != std::string_view::npos;
              });
}

bool isPlainInKeys(char character)
{
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z')
           || (character >= '0' && character <= '9') || character == '-' || character == '_'
           || character == '.';
}

/// Replaces invalid bytes with U+FFFD, like Qt.
std::string asUtf8(const std::string& bytes)
{
    return QString::fromStdString(bytes).toStdString();
}

class Scanner {
public:
    explicit Scanner(std::string_view text)
        : _rest(text)
    {}

    std::string element()
    {
        skipSpaces();
        std::string text;
        std::size_t kept = 0;
        bool isQuoted = false;
        while (!_rest.empty() && (isQuoted || _rest.front() != ',')) {
            const char character = take();
            if (character == '"') {
                isQuoted = !isQuoted;
                kept = text.size();
            } else if (character == '\\') {
                text += escaped();
                kept = text.size();
            } else {
                text += character;
                kept = isQuoted || character != ' ' ? text.size() : kept;
            }
        }
        text.resize(kept);
        _endedWithComma = !_rest.empty();
        if (_endedWithComma) {
            take();
        }
        return asUtf8(text);
    }

    bool endedWithComma() const { return _endedWithComma; }

private:
    char take()
    {
        const char character = _rest.front();
        _rest.remove_prefix(1);
        return character;
    }

    void skipSpaces() { _rest.remove_prefix(std::min(_rest.find_first_not_of(' '), _rest.size())); }

    /// An escape sequence. A backslash before any other character stands for itself.
    std::string escaped()
    {
        const char name = _rest.empty() ? '\0' : _rest.front();
        const auto* const escape = std::ranges::find(escapes, name, &std::pair<char, char>::first);
        if (escape != escapes.end()) {
            take();
            return {escape->second};
        }
        unsigned char byte = 0;
        const char* const first = _rest.data() + 1;
        if (name == 'x' && _rest.size() >= 3
            && std::from_chars(first, first + 2, byte, 16).ptr == first + 2) {
            _rest.remove_prefix(3);
            return {static_cast<char>(byte)};
        }
        return "\\";
    }

    std::string_view _rest;
    bool _endedWithComma = false;
};

}  // namespace

std::string encodeKey(std::string_view key)
{
    std::string encoded;
    encoded.reserve(key.size() * 2);
    for (const char character : key) {
        if (isPlainInKeys(character)) {
            encoded += character;
        } else {
            encoded += '%';
            appendHexadecimal(encoded, character);
        }
    }
    return encoded;
}

std::optional<std::string> decodeKey(std::string_view text)
{
    const QByteArray encoded(text.data(), static_cast<qsizetype>(text.size()));
    std::string key = asUtf8(QByteArray::fromPercentEncoding(encoded).toStdString());
    return encodeKey(key) == text ? std::optional(std::move(key)) : std::nullopt;
}

std::string encodeText(std::string_view text)
{
    if (isPlain(text)) {
        return std::string(text);
    }
    std::string encoded = "\"";
    for (const char character : text) {
        const auto* const escape =
            std::ranges::find(escapes, character, &std::pair<char, char>::second);
        if (escape != escapes.end()) {
            encoded += {'\\', escape->first};
        } else if (isControl(character)) {
            encoded += "\\x";
            appendHexadecimal(encoded, character);
        } else {
            encoded += character;
        }
    }
    return encoded + '"';
}

std::string encodeList(const std::vector<std::string>& texts)
{
    std::string encoded;
    for (const std::string& text : texts) {
        encoded += (encoded.empty() ? "" : ", ") + encodeText(text);
    }
    return texts.empty() ? std::string(emptyList) : encoded;
}

std::string encodeDate(PullRequestKit::Date date)
{
    return std::string(datePrefix) + PullRequestKit::formatDate(date) + ")";
}

std::vector<std::string> decodeList(std::string_view text)
{
    if (text == emptyList) {
        return {};
    }
    Scanner scanner(text);
    std::vector<std::string> texts{scanner.element()};
    while (scanner.endedWithComma()) {
        texts.push_back(scanner.element());
    }
    return texts;
}

std::optional<PullRequestKit::Date> decodeDate(std::string_view text)
{
    if (!text.starts_with(datePrefix) || !text.ends_with(')')) {
        return std::nullopt;
    }
    text.remove_prefix(datePrefix.size());
    text.remove_suffix(1);
    return PullRequestKit::parseDate(text);
}

}  // namespace Tarnwick::IniValue

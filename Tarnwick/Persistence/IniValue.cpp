#include "Tarnwick/Persistence/IniValue.h"

#include "PullRequestKit/Date.h"

#include <QByteArray>
#include <QDateTime>
#include <QMetaType>
#include <QStringList>

#include <algorithm>
#include <array>
#include <charconv>

namespace Tarnwick::IniValue {
namespace {

constexpr std::string_view digits = "0123456789ABCDEF";
constexpr std::string_view emptyList = "@Empty()";
constexpr std::string_view datePrefix = "@Date(";

/// What stands after a backslash, and the character that it means.
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

std::string encodeText(const QString& value)
{
    std::string text = value.toStdString();
    if (isPlain(text)) {
        return text;
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

std::string encodeList(const QStringList& list)
{
    std::string encoded;
    for (const QString& text : list) {
        encoded += (encoded.empty() ? "" : ", ") + encodeText(text);
    }
    return list.isEmpty() ? std::string(emptyList) : encoded;
}

std::string encodeDate(const QDateTime& date)
{
    const std::chrono::seconds sinceEpoch{date.toSecsSinceEpoch()};
    return std::string(datePrefix) + PullRequestKit::formatDate(PullRequestKit::Date{sinceEpoch})
           + ")";
}

/// Takes a value apart from its front.
class Scanner {
public:
    explicit Scanner(std::string_view text)
        : _rest(text)
    {}

    /// The next text of a list, with the comma after it.
    QString element()
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
        return QString::fromStdString(text);
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

    /// What a backslash and the characters after it mean. A backslash before anything else is one.
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

std::optional<QDateTime> decodeDate(std::string_view text)
{
    if (!text.starts_with(datePrefix) || !text.ends_with(')')) {
        return std::nullopt;
    }
    text.remove_prefix(datePrefix.size());
    text.remove_suffix(1);
    const auto date = PullRequestKit::parseDate(text);
    return date ? std::optional(
                      QDateTime::fromSecsSinceEpoch(date->time_since_epoch().count()).toUTC())
                : std::nullopt;
}

}  // namespace

std::string encodeKey(const QString& key)
{
    const QByteArray text = key.toUtf8();
    std::string encoded;
    encoded.reserve(static_cast<std::size_t>(text.size()) * 2);
    for (const char character : text) {
        if (isPlainInKeys(character)) {
            encoded += character;
        } else {
            encoded += '%';
            appendHexadecimal(encoded, character);
        }
    }
    return encoded;
}

std::optional<QString> decodeKey(std::string_view text)
{
    const QByteArray encoded(text.data(), static_cast<qsizetype>(text.size()));
    QString key = QString::fromUtf8(QByteArray::fromPercentEncoding(encoded));
    return encodeKey(key) == text ? std::optional(std::move(key)) : std::nullopt;
}

std::string encode(const QVariant& value)
{
    switch (value.typeId()) {
    case QMetaType::QStringList:
        return encodeList(value.toStringList());
    case QMetaType::QDateTime:
        return encodeDate(value.toDateTime());
    default:
        return encodeText(value.toString());
    }
}

QVariant decode(std::string_view text)
{
    if (text == emptyList) {
        return QStringList();
    }
    if (const auto date = decodeDate(text)) {
        return *date;
    }
    Scanner scanner(text);
    QStringList list{scanner.element()};
    while (scanner.endedWithComma()) {
        list.append(scanner.element());
    }
    return list.size() == 1 ? QVariant(list.front()) : QVariant(list);
}

}  // namespace Tarnwick::IniValue

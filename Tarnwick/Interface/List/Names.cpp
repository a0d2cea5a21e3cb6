#include "Tarnwick/Interface/List/Names.h"

namespace Tarnwick::Names {
namespace {

constexpr QChar firstStrongIsolate(0x2068);
constexpr QChar popDirectionalIsolate(0x2069);

bool isDirectionCharacter(QChar character)
{
    const char16_t code = character.unicode();
    return code == 0x061C || code == 0x200E || code == 0x200F || (code >= 0x202A && code <= 0x202E)
           || (code >= 0x2066 && code <= 0x2069);
}

bool breaksLine(QChar character)
{
    return character.category() == QChar::Other_Control || character == QChar::LineSeparator
           || character == QChar::ParagraphSeparator;
}

}  // namespace

QString shown(const std::string& name, qsizetype mostLetters)
{
    QString text;
    for (const QChar character : QString::fromStdString(name)) {
        if (!isDirectionCharacter(character)) {
            text += breaksLine(character) ? QLatin1Char(' ') : character;
        }
    }
    text = text.simplified();
    if (text.size() > mostLetters) {
        const bool splitsPair = text[mostLetters - 2].isHighSurrogate();
        text.truncate(mostLetters - (splitsPair ? 2 : 1));
        text += QChar(0x2026);
    }
    return text;
}

QStringList shown(const std::vector<std::string>& names)
{
    QStringList texts;
    for (const std::string& name : names) {
        if (const QString text = shown(name); !text.isEmpty()) {
            texts.append(text);
        }
    }
    return texts;
}

QString inMenu(const std::string& name)
{
    return shown(name, 24).replace(QLatin1Char('&'), QStringLiteral("&&"));
}

QString isolated(const QString& text)
{
    return text.isEmpty() ? text : firstStrongIsolate + text + popDirectionalIsolate;
}

}  // namespace Tarnwick::Names

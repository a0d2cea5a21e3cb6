#include "Tarnwick/Interface/Controls/MenuName.h"

namespace Tarnwick {
namespace {

constexpr qsizetype mostLetters = 24;

bool isShown(QChar character)
{
    return character.category() != QChar::Other_Control
           && character.category() != QChar::Other_Format;
}

}  // namespace

QString menuName(const std::string& login)
{
    QString name;
    for (const QChar character : QString::fromStdString(login)) {
        if (isShown(character)) {
            name += character;
        }
    }
    if (name.size() > mostLetters) {
        const bool splitsPair = name[mostLetters - 2].isHighSurrogate();
        name.truncate(mostLetters - (splitsPair ? 2 : 1));
        name += QChar(0x2026);
    }
    return name.replace(QLatin1Char('&'), QStringLiteral("&&"));
}

}  // namespace Tarnwick

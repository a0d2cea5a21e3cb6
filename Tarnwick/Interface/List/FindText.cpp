#include "Tarnwick/Interface/List/FindText.h"

#include <algorithm>

namespace Tarnwick {
namespace {

bool isAscii(const QString& text)
{
    return std::ranges::all_of(text, [](QChar character) { return character.unicode() < 0x80; });
}

}  // namespace

QString folded(const QString& text)
{
    if (isAscii(text)) {
        return text.toLower();
    }
    QString decomposed = text.normalized(QString::NormalizationForm_KD).toCaseFolded();
    decomposed.removeIf(
        [](QChar character) { return character.category() == QChar::Mark_NonSpacing; });
    return decomposed;
}

QStringList foldedWords(const QString& text)
{
    return folded(text).simplified().split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

bool holdsAll(const QString& foldedText, const QStringList& foldedWords)
{
    return std::ranges::all_of(
        foldedWords, [&](const QString& word) { return foldedText.contains(word); });
}

}  // namespace Tarnwick

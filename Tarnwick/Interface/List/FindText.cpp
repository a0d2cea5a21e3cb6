#include "Tarnwick/Interface/List/FindText.h"

#include "Tarnwick/Interface/List/TitleLayout.h"

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

QString searchText(const PullRequestKit::PullRequest& pullRequest)
{
    const auto text = [](const std::string& utf8) { return QString::fromStdString(utf8); };
    const QStringList fields{
        titleText(pullRequest.title),
        text(pullRequest.id.repository),
        QLatin1Char('#') + QString::number(pullRequest.id.number),
        text(pullRequest.author),
        text(pullRequest.head.name),
        text(pullRequest.base.name)};
    // Words contain no line breaks, so none matches across two fields.
    return folded(fields.join(QLatin1Char('\n')));
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

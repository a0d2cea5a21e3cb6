#include "Tarnwick/Interface/List/RowContent.h"

#include "Tarnwick/Interface/List/CountFigures.h"
#include "Tarnwick/Interface/List/TitleLayout.h"

#include <QStringList>

#include <algorithm>
#include <utility>

namespace Tarnwick {
namespace {

bool isAscii(const QString& text)
{
    return std::ranges::all_of(text, [](QChar character) { return character.unicode() < 0x80; });
}

}  // namespace

RowContent::RowContent(ListedRow listed)
    : _listed(std::move(listed))
    , _title(titleText(pullRequest().title))
    , _warning(titleText(row().warning.value_or(std::string())))
    , _reviewLabel(QString::fromStdString(pullRequest().reviewCountLabel()))
    , _checkLabel(QString::fromStdString(pullRequest().checks.label()))
{}

CountWidths RowContent::countWidths() const
{
    return {CountFigures::widthInEm(_reviewLabel), CountFigures::widthInEm(_checkLabel)};
}

QString RowContent::stateIconName() const
{
    const bool isStacked = row().depth >= 1 || row().hasChildren;
    return isStacked ? QStringLiteral("stack") : QStringLiteral("git-pull-request");
}

bool RowContent::matches(const QStringList& foldedWords) const
{
    if (_searchText.isEmpty()) {
        const auto text = [](const std::string& utf8) { return QString::fromStdString(utf8); };
        const PullRequestKit::PullRequest& shown = pullRequest();
        const QStringList fields{
            _title,
            text(shown.id.repository),
            text(shown.author),
            text(shown.head.name),
            text(shown.base.name)};
        // No word holds a line break, so none is found across two fields.
        _searchText = folded(fields.join(QLatin1Char('\n')));
    }
    return std::ranges::all_of(
        foldedWords, [&](const QString& word) { return _searchText.contains(word); });
}

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

}  // namespace Tarnwick

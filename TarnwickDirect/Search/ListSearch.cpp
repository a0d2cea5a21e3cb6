#include "TarnwickDirect/Search/ListSearch.h"

#include "Tarnwick/Interface/List/FindText.h"
#include "TarnwickDirect/CommandLine/Terminal.h"

#include <algorithm>

namespace TarnwickDirect {

using namespace PullRequestKit;

namespace {

constexpr int mostLetters = 200;

bool isNumberTyped(const PullRequest& pullRequest, const QStringList& words)
{
    const QString number = QString::number(pullRequest.id.number);
    return words.contains(number) || words.contains(QLatin1Char('#') + number);
}

}  // namespace

std::vector<const PullRequestRow*> found(
    std::span<const PullRequestRow> rows, const QStringList& words)
{
    const QString typed = words.join(QString());
    if (typed.size() < fewestLetters || typed.size() > mostLetters) {
        return {};
    }
    const QStringList folded = Tarnwick::foldedWords(words.join(QLatin1Char(' ')));
    std::vector<const PullRequestRow*> hits;
    for (const PullRequestRow& row : rows) {
        if (Tarnwick::holdsAll(Tarnwick::searchText(row.pullRequest), folded)) {
            hits.push_back(&row);
        }
    }
    std::ranges::stable_partition(
        hits, [&](const PullRequestRow* row) { return isNumberTyped(row->pullRequest, folded); });
    return hits;
}

QString plainText(const std::string& text)
{
    return QString::fromStdString(singleLine(text)).simplified();
}

QString detailsOf(const PullRequest& pullRequest)
{
    return QStringLiteral("%1 #%2 · %3")
        .arg(plainText(pullRequest.id.repository))
        .arg(pullRequest.id.number)
        .arg(plainText(pullRequest.author));
}

}  // namespace TarnwickDirect

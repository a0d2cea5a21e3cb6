#include "Tarnwick/Interface/List/FindMatches.h"

#include "Tarnwick/Interface/List/FindText.h"

#include <QTextBoundaryFinder>

#include <algorithm>

namespace Tarnwick {
namespace {

constexpr QChar ellipsis(0x2026);

/// A folded text with the source letter of each character, because folding changes lengths.
struct FoldedLetters {
    QString text;
    std::vector<TextRange> letters;  ///< Per character of `text`.
};

FoldedLetters foldedLetters(const QString& text)
{
    FoldedLetters result;
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    qsizetype start = 0;
    for (auto end = finder.toNextBoundary(); end > start; end = finder.toNextBoundary()) {
        result.text += folded(text.mid(start, end - start));
        result.letters.resize(static_cast<std::size_t>(result.text.size()), {start, end});
        start = end;
    }
    return result;
}

}  // namespace

void appendRange(std::vector<TextRange>& ranges, const TextRange& range)
{
    if (!ranges.empty() && range.start <= ranges.back().end) {
        ranges.back().end = std::max(ranges.back().end, range.end);
    } else {
        ranges.push_back(range);
    }
}

std::vector<TextRange> matchesIn(const QString& text, const QStringList& foldedWords)
{
    if (foldedWords.isEmpty()) {
        return {};
    }
    const FoldedLetters letters = foldedLetters(text);
    const auto letterAt = [&](qsizetype place) {
        return letters.letters[static_cast<std::size_t>(place)];
    };
    std::vector<TextRange> found;
    for (const QString& word : foldedWords) {
        for (auto place = letters.text.indexOf(word); place >= 0;
             place = letters.text.indexOf(word, place + 1)) {
            found.push_back({letterAt(place).start, letterAt(place + word.size() - 1).end});
        }
    }
    std::ranges::sort(found, {}, &TextRange::start);
    std::vector<TextRange> joined;
    for (const TextRange& range : found) {
        appendRange(joined, range);
    }
    return joined;
}

std::vector<TextRange> rangesWithin(const std::vector<TextRange>& ranges, const TextRange& within)
{
    std::vector<TextRange> inside;
    for (const TextRange& range : ranges) {
        const auto start = std::max(range.start, within.start);
        const auto end = std::min(range.end, within.end);
        if (start < end) {
            inside.push_back({start - within.start, end - within.start});
        }
    }
    return inside;
}

std::vector<TextRange> rangesShown(
    const std::vector<TextRange>& ranges, const QString& whole, const QString& shown)
{
    if (shown == whole) {
        return ranges;
    }
    const auto before = shown.indexOf(ellipsis);
    if (before < 0) {
        return {};
    }
    const auto after = shown.size() - before - 1;
    std::vector<TextRange> left = rangesWithin(ranges, {0, before});
    const TextRange tail{whole.size() - after, whole.size()};
    for (const TextRange& range : rangesWithin(ranges, tail)) {
        left.push_back({range.start + before + 1, range.end + before + 1});
    }
    return left;
}

}  // namespace Tarnwick

#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace Tarnwick {

/// Characters of a text from `start` up to but not including `end`.
struct TextRange {
    qsizetype start = 0;
    qsizetype end = 0;

    bool operator==(const TextRange&) const = default;
};

/// Matches of the folded words, as whole letters, ascending and merged. Safe from any thread.
std::vector<TextRange> matchesIn(const QString& text, const QStringList& foldedWords);

/// Maps ranges of `whole` to `shown`, the same text or an elided form of it. Safe from any thread.
std::vector<TextRange> rangesShown(
    const std::vector<TextRange>& ranges, const QString& whole, const QString& shown);

/// The parts of the ranges inside `within`, relative to its start. Safe from any thread.
std::vector<TextRange> rangesWithin(const std::vector<TextRange>& ranges, const TextRange& within);

/// Appends a range. Requires: it does not start before the last one.
void appendRange(std::vector<TextRange>& ranges, const TextRange& range);

}  // namespace Tarnwick

#pragma once

#include <QString>
#include <QStringList>

#include <vector>

namespace Tarnwick {

/// Characters of a text from `start` up to but without `end`.
struct TextRange {
    qsizetype start = 0;
    qsizetype end = 0;

    bool operator==(const TextRange&) const = default;
};

/// Where one of the words, which are folded, stands in the text: whole letters in ascending order;
/// ranges that touch are one. Safe from any thread.
std::vector<TextRange> matchesIn(const QString& text, const QStringList& foldedWords);

/// What is left of ranges of `whole` in `shown`, which is the same text or has a "…" in place of
/// some of it. Safe from any thread.
std::vector<TextRange> rangesShown(
    const std::vector<TextRange>& ranges, const QString& whole, const QString& shown);

/// The part of the ranges that lies within, counted from its start. Safe from any thread.
std::vector<TextRange> rangesWithin(const std::vector<TextRange>& ranges, const TextRange& within);

/// Adds a range behind the others. Requires: it starts where or behind where the last one does.
void appendRange(std::vector<TextRange>& ranges, const TextRange& range);

}  // namespace Tarnwick

#pragma once

#include "Support/Names.h"
#include "Tarnwick/Interface/List/RowContent.h"

#include <vector>

namespace TestSupport {

/// The row, not visited.
ListedRow listedRow(PullRequestRow row);

/// A copy of the row that is the listed one's own from now on.
PullRequestRow& own(ListedRow& listed);

/// "2025-06-20T12:00:00Z", which the ages of the sample rows are reckoned from.
Date sampleNow();

/// A dozen rows of every kind: a stack of four levels, drafts, conflicts, failed checks, visited
/// ones, a right-to-left title, emoji, a warning, and titles of one, two and too many lines.
std::vector<ListedRow> sampleRows();

/// `count` plain rows, numbered from 1.
std::vector<ListedRow> plainRows(int count);

/// The row under a heading that it earns, or that a row of its stack earns.
ListedRow underHeading(ListedRow row, Whose heading, Turn turn);

/// A plain row with this number that earns its heading.
ListedRow turnRow(std::int64_t number, Whose whose);

/// A dozen rows under four headings, arranged by whose turn it is, with reasons of many kinds; a
/// stack of three is headed by its first row.
std::vector<ListedRow> turnRows();

}  // namespace TestSupport

#pragma once

#include "Tarnwick/Interface/List/RowContent.h"

#include <vector>

namespace TestSupport {

/// The row, not visited.
Tarnwick::ListedRow listedRow(PullRequestKit::PullRequestRow row);

/// A copy of the row that is the listed one's own from now on.
PullRequestKit::PullRequestRow& own(Tarnwick::ListedRow& listed);

/// "2025-06-20T12:00:00Z", which the ages of the sample rows are reckoned from.
PullRequestKit::Date sampleNow();

/// A dozen rows of every kind: a stack of four levels, drafts, conflicts, failed checks, visited
/// ones, a right-to-left title, emoji, a warning, and titles of one, two and too many lines.
std::vector<Tarnwick::ListedRow> sampleRows();

/// `count` plain rows, numbered from 1.
std::vector<Tarnwick::ListedRow> plainRows(int count);

}  // namespace TestSupport

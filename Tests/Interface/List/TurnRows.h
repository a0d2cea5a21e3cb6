#pragma once

#include "Tarnwick/Interface/List/RowContent.h"

#include <vector>

namespace TestSupport {

/// The row under a heading that it earns, or that a row of its stack earns.
Tarnwick::ListedRow underHeading(
    Tarnwick::ListedRow row, PullRequestKit::Whose heading, PullRequestKit::Turn turn);

/// A plain row with this number that earns its heading.
Tarnwick::ListedRow turnRow(std::int64_t number, PullRequestKit::Whose whose);

/// A dozen rows under four headings, arranged by whose turn it is, with reasons of many kinds; a
/// stack of three is headed by its first row.
std::vector<Tarnwick::ListedRow> turnRows();

}  // namespace TestSupport

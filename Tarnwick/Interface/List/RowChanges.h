#pragma once

#include <vector>

namespace Tarnwick {

/// Rows `first` to `last`, both included.
struct RowRange {
    int first = 0;
    int last = 0;

    bool operator==(const RowRange&) const = default;
};

/// The row at `from` is taken out and put back so that it stands at `to`.
struct RowMove {
    int from = 0;
    int to = 0;

    bool operator==(const RowMove&) const = default;
};

/// The steps that turn one list into another, to be taken in this order and each in the list that
/// the steps before it have left.
struct RowChanges {
    std::vector<RowRange> removals;
    std::vector<RowMove> moves;
    std::vector<RowRange> insertions;
};

/// `targets` holds for each row of the old list its place in the new one, or -1 where it goes;
/// places that are not named are new rows. Rows that keep their order among each other are not
/// moved, as many of them as there can be. Takes n log n time and, for each move, n more.
/// Safe from any thread.
RowChanges rowChanges(const std::vector<int>& targets, int newCount);

/// Places that follow each other, put together to ranges. Requires: `rows` ascends.
std::vector<RowRange> ranges(const std::vector<int>& rows);

}  // namespace Tarnwick

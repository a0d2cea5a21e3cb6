#include "Tarnwick/Interface/List/RowChanges.h"

#include <algorithm>

namespace Tarnwick {
namespace {

/// Which entries belong to a longest ascending selection of the values.
std::vector<bool> longestAscending(const std::vector<int>& values)
{
    constexpr int none = -1;
    std::vector<int> ends;
    std::vector<int> endPlaces;
    std::vector<int> before(values.size(), none);
    for (std::size_t place = 0; place < values.size(); ++place) {
        const auto slot = std::ranges::lower_bound(ends, values[place]) - ends.begin();
        const auto index = static_cast<std::size_t>(slot);
        if (index == ends.size()) {
            ends.push_back(values[place]);
            endPlaces.push_back(static_cast<int>(place));
        } else {
            ends[index] = values[place];
            endPlaces[index] = static_cast<int>(place);
        }
        before[place] = index == 0 ? none : endPlaces[index - 1];
    }
    std::vector<bool> isChosen(values.size(), false);
    for (int place = endPlaces.empty() ? none : endPlaces.back(); place != none;
         place = before[static_cast<std::size_t>(place)]) {
        isChosen[static_cast<std::size_t>(place)] = true;
    }
    return isChosen;
}

/// Moves that sort `values`, which they are left sorted as. Every value that is not chosen to stay
/// goes right behind the one that comes before it.
std::vector<RowMove> sortingMoves(std::vector<int>& values)
{
    const std::vector<bool> stays = longestAscending(values);
    std::vector<int> toMove;
    for (std::size_t place = 0; place < values.size(); ++place) {
        if (!stays[place]) {
            toMove.push_back(values[place]);
        }
    }
    std::ranges::sort(toMove);
    std::vector<int> sorted = values;
    std::ranges::sort(sorted);

    std::vector<RowMove> moves;
    for (const int value : toMove) {
        const auto source = std::ranges::find(values, value);
        const auto rank = std::ranges::lower_bound(sorted, value) - sorted.begin();
        auto destination = values.begin();
        if (rank > 0) {
            destination = std::ranges::find(values, sorted[static_cast<std::size_t>(rank - 1)]) + 1;
        }
        const auto from = static_cast<int>(source - values.begin());
        auto to = static_cast<int>(destination - values.begin());
        if (source < destination) {
            --to;
            std::rotate(source, source + 1, destination);
        } else {
            std::rotate(destination, source, source + 1);
        }
        if (from != to) {
            moves.push_back({from, to});
        }
    }
    return moves;
}

}  // namespace

std::vector<RowRange> ranges(const std::vector<int>& rows)
{
    std::vector<RowRange> found;
    for (const int row : rows) {
        if (!found.empty() && found.back().last + 1 == row) {
            found.back().last = row;
        } else {
            found.push_back({row, row});
        }
    }
    return found;
}

RowChanges rowChanges(const std::vector<int>& targets, int newCount)
{
    std::vector<int> gone;
    std::vector<int> kept;
    std::vector<bool> isKept(static_cast<std::size_t>(newCount), false);
    for (std::size_t row = 0; row < targets.size(); ++row) {
        if (targets[row] < 0) {
            gone.push_back(static_cast<int>(row));
        } else {
            kept.push_back(targets[row]);
            isKept[static_cast<std::size_t>(targets[row])] = true;
        }
    }
    std::vector<int> added;
    for (int row = 0; row < newCount; ++row) {
        if (!isKept[static_cast<std::size_t>(row)]) {
            added.push_back(row);
        }
    }
    RowChanges changes;
    changes.removals = ranges(gone);
    // From the end, so that no removal shifts the rows of the next.
    std::ranges::reverse(changes.removals);
    changes.moves = sortingMoves(kept);
    changes.insertions = ranges(added);
    return changes;
}

}  // namespace Tarnwick

#pragma once

#include "Tarnwick/Interface/List/RowChanges.h"

#include <QAbstractListModel>

#include <algorithm>
#include <vector>

namespace Tarnwick {

/// The base of flat item models whose rows lie in a vector and that announce every change row by
/// row. Main thread only.
class RowListModel : public QAbstractListModel {
public:
    using QAbstractListModel::QAbstractListModel;

protected:
    /// Removes, moves and inserts in `shown` what the changes tell, each step announced; what is
    /// inserted comes from `wanted`.
    template<typename Row>
    void takeSteps(
        std::vector<Row>& shown, const RowChanges& changes, const std::vector<Row>& wanted)
    {
        for (const auto& [first, last] : changes.removals) {
            beginRemoveRows({}, first, last);
            shown.erase(shown.begin() + first, shown.begin() + last + 1);
            endRemoveRows();
        }
        for (const auto& [from, to] : changes.moves) {
            // Qt counts the destination in the list before the move.
            beginMoveRows({}, from, from, {}, to > from ? to + 1 : to);
            const auto moved = shown.begin() + from;
            if (to > from) {
                std::rotate(moved, moved + 1, shown.begin() + to + 1);
            } else {
                std::rotate(shown.begin() + to, moved, moved + 1);
            }
            endMoveRows();
        }
        for (const auto& [first, last] : changes.insertions) {
            beginInsertRows({}, first, last);
            shown.insert(shown.begin() + first, wanted.begin() + first, wanted.begin() + last + 1);
            endInsertRows();
        }
    }

    /// Tells that these rows have other data. Requires: `rows` ascends.
    void announceData(const std::vector<int>& rows)
    {
        for (const auto& [first, last] : ranges(rows)) {
            Q_EMIT dataChanged(index(first), index(last));
        }
    }
};

}  // namespace Tarnwick

#include "Tarnwick/Interface/List/RowListModel.h"

namespace Tarnwick {

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

std::vector<int> RowListModel::rowsWhere(const std::vector<int>& values, int value)
{
    std::vector<int> rows;
    for (std::size_t row = 0; row < values.size(); ++row) {
        if (values[row] == value) {
            rows.push_back(static_cast<int>(row));
        }
    }
    return rows;
}

void RowListModel::moveIndexes(const std::vector<int>& newRows)
{
    const QModelIndexList before = persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex& kept : before) {
        after.append(index(newRows[static_cast<std::size_t>(kept.row())]));
    }
    changePersistentIndexList(before, after);
}

void RowListModel::announceData(const std::vector<int>& rows)
{
    for (const auto& [first, last] : ranges(rows)) {
        Q_EMIT dataChanged(index(first), index(last));
    }
}

}  // namespace Tarnwick

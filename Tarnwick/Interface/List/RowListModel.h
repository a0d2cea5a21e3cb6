#pragma once

#include <QAbstractListModel>

#include <algorithm>
#include <utility>
#include <vector>

namespace Tarnwick {

/// Rows `first` to `last`, inclusive.
struct RowRange {
    int first = 0;
    int last = 0;

    bool operator==(const RowRange&) const = default;
};

/// Merges adjacent rows into ranges. Requires: `rows` is in ascending order.
std::vector<RowRange> ranges(const std::vector<int>& rows);

/// Base of flat item models that apply a new list row by row, so that selection and scroll position
/// follow their rows. Main thread only.
class RowListModel : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    /// In ascending order.
    virtual const std::vector<int>& headingRows() const = 0;

Q_SIGNALS:
    /// Emitted before the changes of a new list.
    void listAboutToChange();
    void listChanged();
    /// Emitted before rows move: `newRows` holds the new position of each row.
    void rowsAboutToBeSorted(const std::vector<int>& newRows);

protected:
    /// Removes, moves and inserts rows in `shown` until it matches `wanted`. `places` holds the
    /// position of each shown row in `wanted`, or -1 if it is removed.
    template<typename Row>
    void takeIn(std::vector<Row>& shown, std::vector<int> places, const std::vector<Row>& wanted)
    {
        std::vector<RowRange> gone = ranges(rowsWhere(places, -1));
        // From the end, so that removals do not shift the remaining ranges.
        std::ranges::reverse(gone);
        for (const auto& [first, last] : gone) {
            beginRemoveRows({}, first, last);
            shown.erase(shown.begin() + first, shown.begin() + last + 1);
            places.erase(places.begin() + first, places.begin() + last + 1);
            endRemoveRows();
        }
        if (!std::ranges::is_sorted(places)) {
            sortByPlace(shown, places);
        }
        std::vector<int> isKept(wanted.size(), 0);
        for (const int place : places) {
            isKept[static_cast<std::size_t>(place)] = 1;
        }
        for (const auto& [first, last] : ranges(rowsWhere(isKept, 0))) {
            beginInsertRows({}, first, last);
            shown.insert(shown.begin() + first, wanted.begin() + first, wanted.begin() + last + 1);
            endInsertRows();
        }
    }

    /// Emits `dataChanged` for these rows. Requires: `rows` is in ascending order.
    void announceData(const std::vector<int>& rows);

private:
    static std::vector<int> rowsWhere(const std::vector<int>& values, int value);

    /// Sorts both and updates the persistent indexes.
    template<typename Row>
    void sortByPlace(std::vector<Row>& shown, std::vector<int>& places)
    {
        std::vector<int> sorted = places;
        std::ranges::sort(sorted);
        std::vector<int> newRows;
        for (const int place : places) {
            const auto rank = std::ranges::lower_bound(sorted, place) - sorted.begin();
            newRows.push_back(static_cast<int>(rank));
        }
        Q_EMIT rowsAboutToBeSorted(newRows);
        Q_EMIT layoutAboutToBeChanged();
        std::vector<Row> moved(shown.size());
        for (std::size_t row = 0; row < shown.size(); ++row) {
            moved[static_cast<std::size_t>(newRows[row])] = std::move(shown[row]);
        }
        shown = std::move(moved);
        places = std::move(sorted);
        moveIndexes(newRows);
        Q_EMIT layoutChanged();
    }

    void moveIndexes(const std::vector<int>& newRows);
};

}  // namespace Tarnwick

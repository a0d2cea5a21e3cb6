#pragma once

#include <QAbstractListModel>

#include <algorithm>
#include <utility>
#include <vector>

namespace Tarnwick {

/// Rows `first` to `last`, both included.
struct RowRange {
    int first = 0;
    int last = 0;

    bool operator==(const RowRange&) const = default;
};

/// Places that follow each other, put together to ranges. Requires: `rows` ascends.
std::vector<RowRange> ranges(const std::vector<int>& rows);

/// The base of flat item models whose rows lie in a vector and that take in a new list row by row:
/// what is selected, or in sight, stays so wherever it goes. Main thread only.
class RowListModel : public QAbstractListModel {
    Q_OBJECT

public:
    using QAbstractListModel::QAbstractListModel;

    /// Where headings stand, in ascending order.
    virtual const std::vector<int>& headingRows() const = 0;

Q_SIGNALS:
    /// Around all the changes that one new list brings.
    void listAboutToChange();
    void listChanged();
    /// Before rows change places: `newRows` holds for each where it will stand.
    void rowsAboutToBeSorted(const std::vector<int>& newRows);

protected:
    /// Removes, reorders and inserts in `shown` until it has the rows of `wanted` where they stand
    /// there. `places` holds for each row shown its place among the wanted ones, or -1 where it
    /// goes.
    template<typename Row>
    void takeIn(std::vector<Row>& shown, std::vector<int> places, const std::vector<Row>& wanted)
    {
        std::vector<RowRange> gone = ranges(rowsWhere(places, -1));
        // From the end, so that no removal shifts the rows of the next.
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

    /// Tells that these rows have other data. Requires: `rows` ascends.
    void announceData(const std::vector<int>& rows);

private:
    static std::vector<int> rowsWhere(const std::vector<int>& values, int value);

    /// Sorts both, and takes the persistent indexes along.
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

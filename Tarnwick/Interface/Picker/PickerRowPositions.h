#pragma once

#include <optional>
#include <vector>

namespace Tarnwick {

/// Where rows of two heights lie below each other, and which owner's label stays at the top of what
/// is seen of them. Logical pixels from the content's upper edge. A value without behaviour of its
/// own; safe from any thread.
class PickerRowPositions {
public:
    PickerRowPositions() = default;

    /// `isOwner` tells of each row whether it is an owner's label. Requires: the first one is.
    PickerRowPositions(const std::vector<bool>& isOwner, int ownerHeight, int repositoryHeight);

    int rowCount() const { return static_cast<int>(_tops.size()) - 1; }

    int contentHeight() const { return _tops.back(); }

    int top(int row) const { return _tops[static_cast<std::size_t>(row)]; }

    int height(int row) const { return top(row + 1) - top(row); }

    /// The row at this height; the first above all, the last below all. Requires: there are rows.
    int rowAt(int y) const;

    /// The label that stays at the top when the content above `offset` is out of sight.
    std::optional<int> stuckOwner(int offset) const;

    /// Where that label lies, below the top of what is seen: at 0 or, pushed out by the next one,
    /// above. Requires: there is one.
    int stuckTop(int offset) const;

private:
    std::vector<int>::const_iterator nextOwner(int offset) const;

    std::vector<int> _tops{0};  ///< Of each row, then the content's end.
    std::vector<int> _owners;   ///< The rows that are labels.
    int _ownerHeight = 0;
};

}  // namespace Tarnwick

#include "Tarnwick/Interface/Picker/PickerRowPositions.h"

#include <algorithm>

namespace Tarnwick {

PickerRowPositions::PickerRowPositions(
    const std::vector<bool>& isOwner, int ownerHeight, int repositoryHeight)
    : _ownerHeight(ownerHeight)
{
    _tops.reserve(isOwner.size() + 1);
    for (std::size_t row = 0; row < isOwner.size(); ++row) {
        if (isOwner[row]) {
            _owners.push_back(static_cast<int>(row));
        }
        _tops.push_back(_tops.back() + (isOwner[row] ? ownerHeight : repositoryHeight));
    }
}

int PickerRowPositions::rowAt(int y) const
{
    const auto below = std::ranges::upper_bound(_tops, y);
    return std::clamp(static_cast<int>(below - _tops.begin()) - 1, 0, rowCount() - 1);
}

/// The first label that lies below `offset`.
std::vector<int>::const_iterator PickerRowPositions::nextOwner(int offset) const
{
    return std::ranges::upper_bound(_owners, offset, {}, [this](int row) { return top(row); });
}

std::optional<int> PickerRowPositions::stuckOwner(int offset) const
{
    const auto next = nextOwner(offset);
    return next == _owners.begin() ? std::nullopt : std::optional(*std::prev(next));
}

int PickerRowPositions::stuckTop(int offset) const
{
    const auto next = nextOwner(offset);
    return next == _owners.end() ? 0 : std::min(0, top(*next) - offset - _ownerHeight);
}

}  // namespace Tarnwick

#include "Tarnwick/Interface/List/GroupHeading.h"

#include <algorithm>

namespace Tarnwick {

std::optional<StuckHeading> stuckHeading(const std::vector<int>& tops, int headingHeight)
{
    const auto next = std::ranges::upper_bound(tops, 0);
    if (next == tops.begin()) {
        return std::nullopt;
    }
    const int top = next == tops.end() ? 0 : std::min(0, *next - headingHeight);
    return StuckHeading{static_cast<int>(next - tops.begin()) - 1, top};
}

}  // namespace Tarnwick

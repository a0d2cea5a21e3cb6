#pragma once

#include <cstddef>
#include <string>

namespace Tarnwick {

/// The number of hidden pull requests by reason, without those of unselected repositories.
struct HiddenCounts {
    std::size_t filters = 0;
    std::size_t muted = 0;  ///< Themselves or by author; takes precedence over filters.

    std::size_t total() const { return filters + muted; }

    bool operator==(const HiddenCounts&) const = default;
};

/// Such as "9 are hidden by filters, 2 are muted."; empty when nothing is hidden.
std::string hiddenSentence(const HiddenCounts& hidden);

}  // namespace Tarnwick

#pragma once

#include <cstddef>
#include <string>

namespace Tarnwick {

/// How many of the fetched pull requests are out of sight, by what hides them. Those of
/// repositories that are not selected do not count.
struct HiddenCounts {
    std::size_t filters = 0;
    std::size_t muted = 0;  ///< By themselves or with their authors, whatever the filters say.

    std::size_t total() const { return filters + muted; }

    bool operator==(const HiddenCounts&) const = default;
};

/// Such as "9 are hidden by filters, 2 are muted." or "1 is hidden by filters."; empty when nothing
/// is hidden.
std::string hiddenSentence(const HiddenCounts& hidden);

}  // namespace Tarnwick

#pragma once

#include "PullRequestKit/Date.h"
#include "PullRequestKit/PullRequestRow.h"
#include "PullRequestKit/Turn.h"

#include <cstdint>
#include <optional>
#include <span>

namespace TarnwickDirect {

/// How the list stands, in the numbers that a bar shows. What is hidden does not count.
struct Status {
    std::uint32_t waitingOnYou = 0;
    std::uint32_t readyToMerge = 0;
    std::uint32_t blocked = 0;
    std::uint32_t listed = 0;
    bool isStale = false;  ///< It may no longer be so: it could not be renewed.
    std::optional<PullRequestKit::Date> lastRefreshed = std::nullopt;

    bool operator==(const Status&) const = default;
};

/// Counts the rows in sight. Requires: a turn for each of them, in their order. Safe from any
/// thread.
Status countedStatus(
    std::span<const PullRequestKit::PullRequestRow> rows,
    std::span<const PullRequestKit::Turn> turns);

}  // namespace TarnwickDirect

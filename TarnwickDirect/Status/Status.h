#pragma once

#include "PullRequestKit/Date.h"
#include "PullRequestKit/PullRequestRow.h"
#include "PullRequestKit/Turn.h"

#include <cstdint>
#include <optional>
#include <span>

namespace TarnwickDirect {

/// The numbers shown by a bar, without hidden pull requests.
struct Status {
    std::uint32_t waitingOnYou = 0;
    std::uint32_t readyToMerge = 0;
    std::uint32_t blocked = 0;
    std::uint32_t listed = 0;
    bool isStale = false;  ///< It could not be refreshed.
    std::optional<PullRequestKit::Date> lastRefreshed = std::nullopt;

    bool operator==(const Status&) const = default;
};

/// Counts the visible rows. Requires: one turn per row, in order. Safe from any thread.
Status countedStatus(
    std::span<const PullRequestKit::PullRequestRow> rows,
    std::span<const PullRequestKit::Turn> turns);

}  // namespace TarnwickDirect

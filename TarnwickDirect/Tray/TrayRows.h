#pragma once

#include "PullRequestKit/PullRequestRow.h"
#include "PullRequestKit/Turn.h"

#include <QString>

#include <cstddef>
#include <span>
#include <vector>

namespace TarnwickDirect {

/// An entry of the tray's menu that opens a pull request.
struct TrayRow {
    QString text;  ///< Such as "#412 Split bookings… — your review".
    PullRequestKit::PullRequestID id;

    bool operator==(const TrayRow&) const = default;
};

/// Of the rows in sight the ones that ask something of the user: first those that wait for the
/// user, then those that are ready, then the teams', each in the list's order; this many at most.
/// Requires: a turn for each row. Safe from any thread.
std::vector<TrayRow> trayRows(
    std::span<const PullRequestKit::PullRequestRow> rows,
    std::span<const PullRequestKit::Turn> turns,
    std::size_t most = 8);

}  // namespace TarnwickDirect

#pragma once

#include "PullRequestKit/PullRequestRow.h"
#include "PullRequestKit/Turn.h"

#include <QString>

#include <cstddef>
#include <span>
#include <vector>

namespace TarnwickDirect {

/// A menu entry that opens a pull request.
struct TrayRow {
    QString text;  ///< Such as "#412 Split bookings… — your review".
    PullRequestKit::PullRequestID id;

    bool operator==(const TrayRow&) const = default;
};

/// The visible rows that the user can act on: the user's turn, then ready, then the teams', each in
/// the list's order, up to a maximum. Requires: one turn per row. Safe from any thread.
std::vector<TrayRow> trayRows(
    std::span<const PullRequestKit::PullRequestRow> rows,
    std::span<const PullRequestKit::Turn> turns,
    std::size_t most = 8);

}  // namespace TarnwickDirect

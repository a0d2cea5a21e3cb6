#pragma once

#include "PullRequestKit/PullRequestDetails.h"
#include "PullRequestKit/PullRequestFacts.h"
#include "PullRequestKit/PullRequestRow.h"
#include "PullRequestKit/Turn.h"
#include "Tarnwick/Model/Filters.h"

#include <cstddef>
#include <functional>
#include <span>
#include <string_view>
#include <vector>

namespace Tarnwick {

/// A heading of the list arranged by turn, and its rows.
struct TurnGroup {
    PullRequestKit::Whose whose = PullRequestKit::Whose::others;
    std::size_t firstRow = 0;
    std::size_t rowCount = 0;  ///< At least one.
    std::size_t count = 0;     ///< Visible rows whose own turn is this one.

    bool operator==(const TurnGroup&) const = default;
};

/// The data that turns depend on. Requires: everything referred to outlives it.
struct TurnSources {
    std::span<const PullRequestKit::PullRequest> listed;  ///< Including hidden ones.
    const PullRequestKit::DetailsByID& details;
    const PullRequestKit::FactsByID& facts;
    std::string_view login;         ///< Empty when unknown.
    bool onlyCurrentFacts = false;  ///< Ignore facts of other versions of a pull request.
};

/// The ordered list. By review state it has no turns and no groups.
struct ArrangedRows {
    std::vector<PullRequestKit::PullRequestRow> rows;
    std::vector<PullRequestKit::Turn> turns;  ///< One per row.
    std::vector<TurnGroup> groups;            ///< They cover all rows in order.
};

/// The turn of each row. Safe from any thread.
std::vector<PullRequestKit::Turn> turnsOf(
    std::span<const PullRequestKit::PullRequestRow> rows, const TurnSources& sources);

/// Moves each stack as a whole under the first heading that one of its visible members has; its own
/// order is kept. A stack without visible members is placed as if it were visible. Without
/// `isInSight` everything is visible. Requires: rows from `StackBuilder`. Safe from any thread.
ArrangedRows arrangedByTurn(
    std::vector<PullRequestKit::PullRequestRow> rows,
    const TurnSources& sources,
    const std::function<bool(const PullRequestKit::PullRequest&)>& isInSight = {});

/// Like `arrangedByTurn`, or the rows unchanged by review state. Safe from any thread.
ArrangedRows arranged(
    Arrangement arrangement,
    std::vector<PullRequestKit::PullRequestRow> rows,
    const TurnSources& sources,
    const std::function<bool(const PullRequestKit::PullRequest&)>& isInSight = {});

}  // namespace Tarnwick

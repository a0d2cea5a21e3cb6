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

/// The rows below one heading of the list that is arranged by whose turn it is.
struct TurnGroup {
    PullRequestKit::Whose whose = PullRequestKit::Whose::others;
    std::size_t firstRow = 0;
    std::size_t rowCount = 0;  ///< At least one.
    std::size_t count = 0;     ///< Those of the rows in sight that earn the heading themselves.

    bool operator==(const TurnGroup&) const = default;
};

/// What whose turn it is follows from. Requires: what is referred to outlives this.
struct TurnSources {
    std::span<const PullRequestKit::PullRequest> listed;  ///< Also those that are hidden.
    const PullRequestKit::DetailsByID& details;
    const PullRequestKit::FactsByID& facts;
    std::string_view login;         ///< The user's; empty when it is not known.
    bool onlyCurrentFacts = false;  ///< Facts of another version of a pull request do not count.
};

/// The list in its order. By review state, there are neither turns nor groups.
struct ArrangedRows {
    std::vector<PullRequestKit::PullRequestRow> rows;
    std::vector<PullRequestKit::Turn> turns;  ///< One for each row.
    std::vector<TurnGroup> groups;            ///< They cover the rows without a gap, in order.
};

/// Whose turn it is with each of the rows, in their order. Safe from any thread.
std::vector<PullRequestKit::Turn> turnsOf(
    std::span<const PullRequestKit::PullRequestRow> rows, const TurnSources& sources);

/// Whole stacks under the first heading that one of their members in sight earns; inside, the order
/// given. A stack of which nothing is in sight stands where it would if it were. Without
/// `isInSight` everything is. Requires: rows as `StackBuilder` makes them, each stack from a row of
/// depth 0 to the next one. Safe from any thread.
ArrangedRows arrangedByTurn(
    std::vector<PullRequestKit::PullRequestRow> rows,
    const TurnSources& sources,
    const std::function<bool(const PullRequestKit::PullRequest&)>& isInSight = {});

/// The same, or the rows as they are, by review state. Safe from any thread.
ArrangedRows arranged(
    Arrangement arrangement,
    std::vector<PullRequestKit::PullRequestRow> rows,
    const TurnSources& sources,
    const std::function<bool(const PullRequestKit::PullRequest&)>& isInSight = {});

}  // namespace Tarnwick

#include "Tarnwick/Interface/List/ListedRows.h"

namespace Tarnwick {
namespace {

struct Arranged {
    SharedRows rows;
    SharedTurns turns;
    std::vector<TurnGroup> groups;
};

Arranged arrangedRows(const PullRequestMenuModel& model, HiddenRows hidden)
{
    if (hidden == HiddenRows::areLeftOut) {
        return {model.sharedRows(), model.sharedTurns(), model.groups()};
    }
    const auto all = model.arrangedWithHidden();
    return {{all, &all->rows}, {all, &all->turns}, all->groups};
}

}  // namespace

std::vector<ListedRow> listedRows(const PullRequestMenuModel& model, HiddenRows hidden)
{
    const auto [rows, turns, groups] = arrangedRows(model, hidden);
    const PullRequestKit::SharedDetails& details = model.details();
    std::vector<ListedRow> listed;
    listed.reserve(rows->size());
    for (const PullRequestKit::PullRequestRow& row : *rows) {
        SinceVisit since = model.sinceVisit(row.pullRequest);
        const bool isVisited = since.changes.empty() && model.visits().isVisited(row.pullRequest);
        const Sight sight =
            hidden == HiddenRows::areDimmed ? model.sightOf(row.pullRequest) : Sight::inSight;
        const auto mutedUntil =
            sight == Sight::muted ? model.mutes().mutedUntil(row.pullRequest) : std::nullopt;
        const auto known = details->find(row.id());
        const auto* const names = known != details->end() ? &known->second : nullptr;
        listed.push_back(
            {{rows, &row}, isVisited, sight, mutedUntil, std::move(since), {details, names}});
    }
    for (const TurnGroup& group : groups) {
        for (std::size_t row = group.firstRow; row < group.firstRow + group.rowCount; ++row) {
            listed[row].turn = {turns, &(*turns)[row]};
            listed[row].heading = group.whose;
        }
    }
    return listed;
}

}  // namespace Tarnwick

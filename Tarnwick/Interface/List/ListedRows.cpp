#include "Tarnwick/Interface/List/ListedRows.h"

namespace Tarnwick {

std::vector<ListedRow> listedRows(const PullRequestMenuModel& model, HiddenRows hidden)
{
    const auto list = hidden == HiddenRows::areLeftOut ? model.list().arranged()
                                                       : model.list().arrangedWithHidden();
    const PullRequestKit::SharedDetails& details = model.list().details();
    std::vector<ListedRow> listed;
    listed.reserve(list->rows.size());
    for (const PullRequestKit::PullRequestRow& row : list->rows) {
        SinceVisit since = model.sinceVisit(row.pullRequest);
        const bool isVisited = since.changes.empty() && model.visits().isVisited(row.pullRequest);
        const Sight sight = hidden == HiddenRows::areDimmed ? model.list().sightOf(row.pullRequest)
                                                            : Sight::inSight;
        const auto mutedUntil =
            sight == Sight::muted ? model.mutes().mutedUntil(row.pullRequest) : std::nullopt;
        const auto known = details->find(row.id());
        const auto* const names = known != details->end() ? &known->second : nullptr;
        listed.push_back(
            {{list, &row}, isVisited, sight, mutedUntil, std::move(since), {details, names}});
    }
    for (const TurnGroup& group : list->groups) {
        for (std::size_t row = group.firstRow; row < group.firstRow + group.rowCount; ++row) {
            listed[row].turn = {list, &list->turns[row]};
            listed[row].heading = group.whose;
        }
    }
    return listed;
}

}  // namespace Tarnwick

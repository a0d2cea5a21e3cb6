#include "Tarnwick/Interface/List/ScrollAnchor.h"

#include "Tarnwick/Interface/List/PullRequestListView.h"

#include <QScrollBar>

#include <algorithm>

namespace Tarnwick {
namespace {

const PullRequestListModel& modelOf(const PullRequestListView& view)
{
    return *qobject_cast<const PullRequestListModel*>(view.model());
}

}  // namespace

ScrollAnchor::ScrollAnchor(const PullRequestListView& view, Top listTop)
{
    if (view.verticalScrollBar()->value() == 0 && listTop == Top::isKept) {
        return;
    }
    const PullRequestListModel& model = modelOf(view);
    const int bottom = view.viewport()->height();
    const int covered = view.coveredHeight();
    const QModelIndex first = view.indexAt(QPoint(1, 0));
    for (int row = first.isValid() ? first.row() : model.rowCount(); row < model.rowCount();
         ++row) {
        const QRect place = view.visualRect(model.index(row));
        if (place.top() >= bottom) {
            break;
        }
        if (!model.isHeading(row) && place.bottom() >= covered) {
            _tops.emplace_back(model.content(row).row().id(), place.top());
        }
    }
}

void ScrollAnchor::restore(PullRequestListView& view) const
{
    const PullRequestListModel& model = modelOf(view);
    const auto isStill = [&](const Place& place) {
        return !_moved.contains(place.first) && model.indexOf(place.first).isValid();
    };
    const auto isThere = [&](const Place& place) { return model.indexOf(place.first).isValid(); };
    auto found = std::ranges::find_if(_tops, isStill);
    if (found == _tops.end()) {
        found = std::ranges::find_if(_tops, isThere);
    }
    if (found != _tops.end()) {
        QScrollBar* const bar = view.verticalScrollBar();
        const QRect place = view.visualRect(model.indexOf(found->first));
        bar->setValue(bar->value() + place.top() - found->second);
    }
}

}  // namespace Tarnwick

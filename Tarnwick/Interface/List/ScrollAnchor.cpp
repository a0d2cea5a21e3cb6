#include "Tarnwick/Interface/List/ScrollAnchor.h"

#include "Tarnwick/Interface/List/PullRequestListView.h"

#include <QScrollBar>

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
    const QModelIndex first = view.indexAt(QPoint(1, 0));
    for (int row = first.isValid() ? first.row() : model.rowCount(); row < model.rowCount();
         ++row) {
        const int top = view.visualRect(model.index(row)).top();
        if (top >= bottom) {
            break;
        }
        _tops.emplace_back(model.content(row).row().id(), top);
    }
}

void ScrollAnchor::restore(PullRequestListView& view) const
{
    const PullRequestListModel& model = modelOf(view);
    for (const auto& [id, top] : _tops) {
        const QModelIndex index = model.indexOf(id);
        if (index.isValid()) {
            QScrollBar* const bar = view.verticalScrollBar();
            bar->setValue(bar->value() + view.visualRect(index).top() - top);
            return;
        }
    }
}

}  // namespace Tarnwick

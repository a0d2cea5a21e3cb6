#include "Tarnwick/Interface/List/HeadingPainter.h"
#include "Tarnwick/Interface/List/PullRequestListView.h"

#include <QPainter>
#include <QScrollBar>

#include <algorithm>

namespace Tarnwick {

int PullRequestListView::rowAt(const QPoint& position) const
{
    const QModelIndex index = indexInSight(position);
    return index.isValid() && !_model.isHeading(index.row()) ? index.row() : -1;
}

QModelIndex PullRequestListView::indexInSight(const QPoint& position) const
{
    const std::optional<StuckHeading> heading = stuck();
    if (heading && position.y() >= 0 && position.y() < heading->top + coveredHeight()) {
        return _model.index(_model.headingRows()[static_cast<std::size_t>(heading->index)]);
    }
    return indexAt(position);
}

int PullRequestListView::firstRowInSight() const
{
    const QModelIndex index = indexAt(QPoint(1, coveredHeight()));
    int row = index.isValid() ? index.row() : 0;
    while (row + 1 < _model.rowCount() && _model.isHeading(row)) {
        ++row;
    }
    return row;
}

int PullRequestListView::coveredHeight() const
{
    return _model.headingRows().empty() ? 0 : _delegate->metrics().heading;
}

std::optional<StuckHeading> PullRequestListView::stuck() const
{
    std::vector<int> tops;
    for (const int row : _model.headingRows()) {
        tops.push_back(visualRect(_model.index(row)).top());
    }
    return stuckHeading(tops, coveredHeight());
}

void PullRequestListView::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    const int covered = coveredHeight();
    if (covered == 0 || hint != EnsureVisible || !index.isValid()) {
        QListView::scrollTo(index, hint);
        return;
    }
    const QRect place = visualRect(index);
    const int above = covered - place.top();
    const int below = place.top() + place.height() - viewport()->height();
    if (above > 0 || below > 0) {
        QScrollBar* const bar = verticalScrollBar();
        bar->setValue(bar->value() + (above > 0 ? -above : std::min(below, -above)));
    }
}

void PullRequestListView::paintStuckHeading(QPainter& painter) const
{
    if (const std::optional<StuckHeading> heading = stuck()) {
        const int row = _model.headingRows()[static_cast<std::size_t>(heading->index)];
        const QRect place(0, heading->top, viewport()->width(), coveredHeight());
        paintHeading(painter, place, _model.heading(row));
    }
}

}  // namespace Tarnwick

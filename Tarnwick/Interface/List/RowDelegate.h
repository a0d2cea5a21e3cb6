#pragma once

#include "Tarnwick/Interface/List/PullRequestListModel.h"
#include "Tarnwick/Interface/List/PullRequestRowView.h"
#include "Tarnwick/Interface/List/TitleCache.h"

#include <memory>
#include <optional>

namespace Tarnwick {

enum class RowPart {
    row,
    stateIcon,
    dot,
    title,
    warning,
    details,
    conflict,
    review,
    check,
    editorButton,
};

/// Sizes, paints and hit-tests rows by one geometry. Caches layouts for the current width, text
/// size and counts. Main thread only.
class RowDelegate {
public:
    explicit RowDelegate(const PullRequestListModel& model);

    /// Call before other functions if the width, text size or widest count may have changed.
    void setWidth(int width);

    const RowMetrics& metrics() const { return _metrics; }

    /// Requires, also for the following functions: the row is not a heading.
    int height(int row) const { return rowHeight(_metrics, shape(row)); }

    RowGeometry geometry(int row) const;

    /// `position` is relative to the row's upper left corner.
    RowPart partAt(int row, const QPoint& position) const;

    /// Relative to the row's upper left corner.
    QRect place(int row, RowPart part) const;

    /// The tool tip of a part, including the whole of an elided text. Plain text.
    QString toolTip(int row, RowPart part) const;

    void paint(QPainter& painter, int row, const RowState& situation) const;

private:
    TitleCache& titles(const RowContent& content) const;
    RowShape shape(int row) const;
    std::shared_ptr<const TitleLayout> title(int row) const;
    QString titleToolTip(int row) const;
    QString detailsToolTip(int row) const;

    const PullRequestListModel& _model;
    double _textScale;
    CountWidths _counts;
    RowMetrics _metrics;
    mutable TitleCache _titles;
    mutable std::optional<TitleCache> _dimmedTitles;  ///< Created for the first dimmed row.
};

}  // namespace Tarnwick

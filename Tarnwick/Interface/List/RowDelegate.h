#pragma once

#include "Tarnwick/Interface/List/PullRequestListModel.h"
#include "Tarnwick/Interface/List/PullRequestRowView.h"
#include "Tarnwick/Interface/List/TitleCache.h"

#include <memory>
#include <optional>

namespace Tarnwick {

/// The parts of a row that a pointer can be on.
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

/// Gives the list its rows: their sizes, their pictures, and what is at a point of them, all from
/// one geometry. Layouts are kept as long as width, text size and counts stay. Main thread only.
class RowDelegate {
public:
    explicit RowDelegate(const PullRequestListModel& model);

    /// To be called before rows of another width, text size or widest count are asked for.
    void setWidth(int width);

    const RowMetrics& metrics() const { return _metrics; }

    /// Requires for this and what follows: the row is no heading.
    int height(int row) const { return rowHeight(_metrics, shape(row)); }

    RowGeometry geometry(int row) const;

    /// `position` is relative to the row's upper left corner.
    RowPart partAt(int row, const QPoint& position) const;

    /// Where a part is, relative to the row's upper left corner.
    QRect place(int row, RowPart part) const;

    /// What to say about a part; for cut texts the whole of them. Plain text.
    QString helpText(int row, RowPart part) const;

    void paint(QPainter& painter, int row, const RowState& situation) const;

private:
    TitleCache& titles(const RowContent& content) const;
    RowShape shape(int row) const;
    std::shared_ptr<const TitleLayout> title(int row) const;
    QString titleHelpText(int row) const;
    QString detailsHelpText(int row) const;

    const PullRequestListModel& _model;
    double _textScale;
    CountWidths _counts;
    RowMetrics _metrics;
    mutable TitleCache _titles;
    mutable std::optional<TitleCache> _dimmedTitles;  ///< From when there was a dimmed row.
};

}  // namespace Tarnwick

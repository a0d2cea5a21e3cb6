#pragma once

#include "Tarnwick/Interface/List/RowContent.h"
#include "Tarnwick/Interface/List/RowGeometry.h"
#include "Tarnwick/Interface/List/TitleLayout.h"
#include "Tarnwick/Interface/Style/Appearance.h"

#include <QPainter>

namespace Tarnwick {

/// The interactive state of a row.
struct RowState {
    double hover = 0;  ///< The opacity of the fill, from 0 to 1.
    bool isSelected = false;
    bool hasFocusRing = false;
    bool showsEditorButton = false;
    bool isOnEditorButton = false;
    bool hasLineAbove = false;
};

/// Paints a row by its geometry, with matches highlighted. Made for one frame. Main thread only.
class PullRequestRowView {
public:
    PullRequestRowView(
        QPainter& painter,
        const RowMetrics& metrics,
        PullRequestKit::Date now,
        const QStringList& findWords);

    /// The painter's origin is the row's upper left corner.
    void paint(
        const RowContent& content,
        const RowGeometry& geometry,
        const TitleLayout& title,
        const RowState& situation);

private:
    /// Returns the common color of a dimmed row, or `color`.
    QColor unlessDimmed(const RowContent& content, const QColor& color) const;
    void paintFill(const RowGeometry& geometry, const RowState& situation);
    void paintStart(const RowContent& content, const RowGeometry& geometry);
    void paintDot(const RowContent& content, const RowGeometry& geometry);
    void paintBadges(const RowContent& content, const RowGeometry& geometry);
    void paintCount(const QRect& place, const QString& label, const QColor& color);
    /// The words to highlight; none in dimmed rows.
    const QStringList& wordsIn(const RowContent& content) const;
    void paintDetails(const RowContent& content, const QRect& place);
    void paintEditorButton(const RowGeometry& geometry, const RowState& situation);

    QPainter& _painter;
    const RowMetrics& _metrics;
    const Palette& _palette;
    PullRequestKit::Date _now;
    const QStringList& _findWords;
};

}  // namespace Tarnwick

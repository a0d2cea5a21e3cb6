#pragma once

#include "Tarnwick/Interface/List/RowContent.h"
#include "Tarnwick/Interface/List/RowGeometry.h"
#include "Tarnwick/Interface/List/TitleLayout.h"
#include "Tarnwick/Interface/Style/Appearance.h"

#include <QPainter>

namespace Tarnwick {

/// What the user does with a row at this moment.
struct RowState {
    double hover = 0;  ///< From 0 to 1 while the fill comes and goes.
    bool isSelected = false;
    bool hasFocusRing = false;
    bool showsEditorButton = false;
    bool isOnEditorButton = false;
    bool hasLineAbove = false;
};

/// Paints one row where its geometry says, with plates behind what is to be found. It is made for
/// one frame of rows. Main thread only.
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
    /// The color, or that of everything in a dimmed row.
    QColor unlessDimmed(const RowContent& content, const QColor& color) const;
    void paintFill(const RowGeometry& geometry, const RowState& situation);
    void paintStart(const RowContent& content, const RowGeometry& geometry);
    void paintDot(const RowContent& content, const RowGeometry& geometry);
    void paintBadges(const RowContent& content, const RowGeometry& geometry);
    void paintCount(const QRect& place, const QString& label, const QColor& color);
    /// What is marked in the row; dimmed rows carry no marks.
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

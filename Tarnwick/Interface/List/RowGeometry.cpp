#include "Tarnwick/Interface/List/RowGeometry.h"

#include <algorithm>

namespace Tarnwick {
namespace {

constexpr int margin = 16;
constexpr int gap = 7;
constexpr int padding = 9;
constexpr int indentation = 11;
constexpr std::int64_t deepest = 3;
constexpr int fillInset = 8;
constexpr int buttonMargin = 12;
constexpr int buttonPadding = 5;
constexpr int textToButton = 8;

int frameWidth(std::int64_t depth)
{
    return static_cast<int>(std::clamp<std::int64_t>(depth, 0, deepest)) * indentation;
}

int stateIconLeft(std::int64_t depth)
{
    return depth <= 0 ? margin : margin + frameWidth(depth) + gap;
}

int titleLeft(const RowMetrics& metrics, std::int64_t depth)
{
    return stateIconLeft(depth) + metrics.icon + gap;
}

int checkLeft(const RowMetrics& metrics)
{
    return metrics.width - margin - metrics.checkWidth;
}

int reviewLeft(const RowMetrics& metrics)
{
    return checkLeft(metrics) - gap - metrics.reviewWidth;
}

int conflictLeft(const RowMetrics& metrics)
{
    return reviewLeft(metrics) - gap - metrics.icon;
}

/// The top of something centered in the title's first line.
int inFirstLine(const RowMetrics& metrics, int height)
{
    return padding + (metrics.title.height - height) / 2;
}

void placeBadges(RowGeometry& geometry, const RowMetrics& metrics)
{
    const int top = inFirstLine(metrics, metrics.icon);
    const auto icon = [&](int left) { return QRect(left, top, metrics.icon, metrics.icon); };
    const auto count = [&](const QRect& badge) {
        const int left = badge.left() + metrics.icon + metrics.badgeGap;
        return QRect(
            left,
            inFirstLine(metrics, metrics.count.height),
            badge.left() + badge.width() - left,
            metrics.count.height);
    };
    geometry.conflict = icon(conflictLeft(metrics));
    geometry.review = QRect(reviewLeft(metrics), top, metrics.reviewWidth, metrics.icon);
    geometry.reviewIcon = icon(geometry.review.left());
    geometry.reviewCount = count(geometry.review);
    geometry.check = QRect(checkLeft(metrics), top, metrics.checkWidth, metrics.icon);
    geometry.checkIcon = icon(geometry.check.left());
    geometry.checkCount = count(geometry.check);
}

void placeEditorButton(RowGeometry& geometry, const RowMetrics& metrics)
{
    const QSize size = metrics.editorButton;
    const QPoint corner(
        metrics.width - buttonMargin - size.width(),
        geometry.height - buttonPadding - size.height());
    geometry.editorButton = QRect(corner, size);
    geometry.editorIcon = QRect(
        corner.x() + (size.width() - metrics.editorIcon) / 2,
        corner.y() + (size.height() - metrics.editorIcon) / 2,
        metrics.editorIcon,
        metrics.editorIcon);
    geometry.editorHitArea =
        QRect(corner, QSize(metrics.width - corner.x(), geometry.height - corner.y()));
}

void placeLines(RowGeometry& geometry, const RowMetrics& metrics, const RowShape& shape)
{
    const int left = titleLeft(metrics, shape.depth);
    const int captionWidth = metrics.width - margin - left;
    const int titleHeight = shape.titleLines * metrics.title.height;
    geometry.title = QRect(left, padding, titleWidth(metrics, shape.depth), titleHeight);
    if (shape.hasWarning) {
        geometry.warning = QRect(left, padding + titleHeight, captionWidth, metrics.caption.height);
    }
    const int top = geometry.height - padding - metrics.caption.height;
    geometry.details = QRect(left, top, captionWidth, metrics.caption.height);
    const int middle = geometry.stateIcon.left() + metrics.icon / 2;
    geometry.dot = QRect(
        middle - metrics.dot / 2,
        top + (metrics.caption.height - metrics.dot) / 2,
        metrics.dot,
        metrics.dot);
    geometry.dotHelp =
        QRect(middle - metrics.dotHelpWidth / 2, top, metrics.dotHelpWidth, metrics.caption.height);
    geometry.detailsBesideButton = geometry.details;
    geometry.detailsBesideButton.setWidth(geometry.editorButton.left() - textToButton - left);
}

}  // namespace

int titleWidth(const RowMetrics& metrics, std::int64_t depth)
{
    return std::max(0, conflictLeft(metrics) - gap - titleLeft(metrics, depth));
}

int rowHeight(const RowMetrics& metrics, const RowShape& shape)
{
    const int captions = shape.hasWarning ? 2 : 1;
    return 2 * padding + shape.titleLines * metrics.title.height
           + captions * metrics.caption.height;
}

RowGeometry rowGeometry(const RowMetrics& metrics, const RowShape& shape)
{
    constexpr int barLeft = 3;
    constexpr int barWidth = 3;
    RowGeometry geometry;
    geometry.height = rowHeight(metrics, shape);
    const int iconTop = inFirstLine(metrics, metrics.icon);
    geometry.fill = QRect(fillInset, 1, metrics.width - 2 * fillInset, geometry.height - 2);
    geometry.blockedBar = QRect(barLeft, iconTop, barWidth, metrics.icon);
    geometry.stateIcon = QRect(stateIconLeft(shape.depth), iconTop, metrics.icon, metrics.icon);
    if (shape.depth > 0) {
        geometry.arrow = QRect(
            margin + frameWidth(shape.depth) - metrics.arrow,
            inFirstLine(metrics, metrics.arrow),
            metrics.arrow,
            metrics.arrow);
    }
    geometry.line =
        QRect(titleLeft(metrics, 0), 0, metrics.width - margin - titleLeft(metrics, 0), 0);
    placeBadges(geometry, metrics);
    placeEditorButton(geometry, metrics);
    placeLines(geometry, metrics, shape);
    return geometry;
}

}  // namespace Tarnwick

#include "Tarnwick/Interface/Picker/PickerListView.h"

#include "Tarnwick/Interface/Look/Painting.h"

#include <QMouseEvent>
#include <QScrollBar>

#include <algorithm>

namespace Tarnwick {
namespace {

/// Below the last row, so that it ends above the window's round corners.
constexpr int bottomRoom = 8;
/// The scroll bar's handle keeps clear of the same corners.
constexpr int scrollBarEnd = 10;
constexpr int scrollBarMargin = 2;

}  // namespace

PickerListView::PickerListView(PickerListModel& model, QWidget* parent)
    : QListView(parent)
    , _model(model)
    , _rows()
    , _scrollBar(new OverlayScrollBar(*this))
{
    setAccessibleName(QStringLiteral("Repositories"));
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollMode(ScrollPerPixel);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setMouseTracking(true);
    setModel(&model);
    connect(&model, &QAbstractItemModel::rowsRemoved, this, &PickerListView::rowsChanged);
    connect(&model, &QAbstractItemModel::rowsMoved, this, &PickerListView::rowsChanged);
    adopt();
}

void PickerListView::adopt()
{
    _rows.adopt();
    _scrollBar->setInsets(
        _rows.metrics().ownerHeight + scrollBarMargin, scrollBarEnd + scrollBarMargin);
    rowsChanged();
    viewport()->update();
}

void PickerListView::changeEvent(QEvent* event)
{
    QListView::changeEvent(event);
    if (event->type() == QEvent::StyleChange) {
        adopt();
    }
}

void PickerListView::enter()
{
    setFocus(Qt::TabFocusReason);
}

// Positions

const PickerRowPositions& PickerListView::positions() const
{
    if (!_positions) {
        std::vector<bool> isOwner;
        isOwner.reserve(static_cast<std::size_t>(_model.rowCount()));
        for (int row = 0; row < _model.rowCount(); ++row) {
            isOwner.push_back(_model.row(row).isOwner());
        }
        const PickerRowMetrics& metrics = _rows.metrics();
        _positions.emplace(isOwner, metrics.ownerHeight, metrics.repositoryHeight);
    }
    return *_positions;
}

void PickerListView::rowsChanged()
{
    _positions.reset();
    scheduleDelayedItemsLayout();
}

void PickerListView::rowsInserted(const QModelIndex& parent, int first, int last)
{
    rowsChanged();
    QAbstractItemView::rowsInserted(parent, first, last);
}

void PickerListView::rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last)
{
    QAbstractItemView::rowsAboutToBeRemoved(parent, first, last);
}

void PickerListView::dataChanged(
    const QModelIndex& first, const QModelIndex& last, const QList<int>& roles)
{
    QAbstractItemView::dataChanged(first, last, roles);
    // A label that stays at the top is not where its row is.
    viewport()->update();
}

void PickerListView::doItemsLayout()
{
    _positions.reset();
    QAbstractItemView::doItemsLayout();
}

void PickerListView::updateGeometries()
{
    QScrollBar* const bar = verticalScrollBar();
    const int page = viewport()->height();
    _isRestoring = true;
    bar->setPageStep(page);
    bar->setSingleStep(_rows.metrics().repositoryHeight / 2);
    bar->setRange(0, std::max(0, positions().contentHeight() + bottomRoom - page));
    if (_anchor.isValid()) {
        bar->setValue(positions().top(_anchor.row()) + _anchorOffset);
    }
    _isRestoring = false;
    rememberAnchor();
    QAbstractItemView::updateGeometries();
}

/// A list that stands at its beginning stays there and shows what comes before its first row.
void PickerListView::rememberAnchor()
{
    _anchor = QPersistentModelIndex();
    if (verticalOffset() > 0 && positions().rowCount() > 0) {
        const int row = positions().rowAt(verticalOffset() + _rows.metrics().ownerHeight);
        _anchor = _model.index(row);
        _anchorOffset = verticalOffset() - positions().top(row);
    }
}

void PickerListView::scrollContentsBy(int /*dx*/, int /*dy*/)
{
    if (!_isRestoring) {
        rememberAnchor();
    }
    viewport()->update();
    if (viewport()->underMouse()) {
        setHovered(spotAt(viewport()->mapFromGlobal(QCursor::pos())));
    }
}

void PickerListView::resizeEvent(QResizeEvent* event)
{
    QAbstractItemView::resizeEvent(event);
}

int PickerListView::verticalOffset() const
{
    return verticalScrollBar()->value();
}

QRect PickerListView::visualRect(const QModelIndex& index) const
{
    if (!index.isValid()) {
        return {};
    }
    const int row = index.row();
    const int top = stuckOwner() == row ? positions().stuckTop(verticalOffset())
                                        : positions().top(row) - verticalOffset();
    return {0, top, viewport()->width(), positions().height(row)};
}

QModelIndex PickerListView::indexAt(const QPoint& position) const
{
    if (const std::optional<int> owner = stuckOwner()) {
        const QModelIndex stuck = _model.index(*owner);
        if (visualRect(stuck).contains(position)) {
            return stuck;
        }
    }
    const int y = position.y() + verticalOffset();
    if (y < 0 || y >= positions().contentHeight()) {
        return {};
    }
    return _model.index(positions().rowAt(y));
}

void PickerListView::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    if (!index.isValid()) {
        return;
    }
    const int row = index.row();
    const int top = positions().top(row);
    const int bottom = top + positions().height(row);
    // A repository has to clear the label that stays above it.
    const int covered = _model.row(row).isOwner() ? 0 : _rows.metrics().ownerHeight;
    const int page = viewport()->height();
    QScrollBar* const bar = verticalScrollBar();
    if (hint == PositionAtTop || top - covered < bar->value()) {
        bar->setValue(top - covered);
    } else if (hint == PositionAtBottom || bottom > bar->value() + page) {
        const bool isLast = row + 1 == positions().rowCount();
        bar->setValue(bottom + (isLast ? bottomRoom : 0) - page);
    }
}

void PickerListView::setSelection(const QRect& area, QItemSelectionModel::SelectionFlags command)
{
    selectionModel()->select(indexAt(area.topLeft()), command);
}

QRegion PickerListView::visualRegionForSelection(const QItemSelection& selection) const
{
    QRegion region;
    for (const QModelIndex& index : selection.indexes()) {
        region += visualRect(index);
    }
    return region;
}

// Painting

void PickerListView::drawRow(QPainter& painter, int row) const
{
    const QModelIndex index = _model.index(row);
    const bool isCurrent = index == currentIndex();
    const PickerRowPainter::State state{
        .isHovered = _hovered.row == index,
        .isButtonHovered = _hovered.row == index && _hovered.isButton,
        .isCurrent = isCurrent,
        .hasRing = isCurrent && hasFocus() && _usesKeyboard};
    const QRect place = visualRect(index);
    _rows.draw(painter, _model.row(row), place.topLeft(), place.width(), state);
}

void PickerListView::paintEvent(QPaintEvent* /*event*/)
{
    executeDelayedItemsLayout();
    QPainter painter(viewport());
    const Palette& palette = appearance().palette();
    painter.fillRect(viewport()->rect(), palette.surfaceList);
    const int end = std::min(verticalOffset() + viewport()->height(), positions().contentHeight());
    const std::optional<int> stuck = stuckOwner();
    for (int row = stuck ? positions().rowAt(verticalOffset()) : 0;
         row < positions().rowCount() && positions().top(row) < end;
         ++row) {
        if (row != stuck) {
            drawRow(painter, row);
        }
    }
    if (stuck) {
        drawRow(painter, *stuck);
    }
    Painting::hairline(painter, 0, 0, viewport()->width(), palette.hairline);
}

}  // namespace Tarnwick

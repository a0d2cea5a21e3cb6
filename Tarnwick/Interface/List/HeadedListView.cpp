#include "Tarnwick/Interface/List/HeadedListView.h"

#include "Tarnwick/Interface/Controls/ToolTip.h"
#include "Tarnwick/Interface/List/ListNavigation.h"
#include "Tarnwick/Interface/Style/Appearance.h"

#include <QAbstractItemDelegate>
#include <QHelpEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>
#include <cstdlib>
#include <utility>

namespace Tarnwick {
namespace {

constexpr int wheelStep = 20;

/// The minimum offset of Qt's tool tips below the given position.
constexpr int helpBelowPointer = 16;

/// Passes the view's row heights to Qt's layout. The view stretches the widths.
class RowSizes final : public QAbstractItemDelegate {
public:
    explicit RowSizes(HeadedListView& view)
        : QAbstractItemDelegate(&view)
        , _view(view)
    {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index)
        const override
    {
        _view.paintRow(*painter, index.row(), option.rect);
    }

    QSize sizeHint(const QStyleOptionViewItem& /*option*/, const QModelIndex& index) const override
    {
        return {1, _view.rowHeight(index.row())};
    }

private:
    HeadedListView& _view;
};

}  // namespace

HeadedListView::HeadedListView(QWidget* parent)
    : QListView(parent)
    , _scrollBar(*this)
    , _hover(*viewport())
{
    setFrameShape(QFrame::NoFrame);
    setItemDelegate(new RowSizes(*this));
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setAutoScroll(false);
    setMouseTracking(true);
}

void HeadedListView::begin(RowListModel& model)
{
    _rows = &model;
    setModel(&model);
    connect(&model, &RowListModel::listAboutToChange, this, &HeadedListView::startTaking);
    connect(&model, &RowListModel::rowsAboutToBeSorted, this, &HeadedListView::measureDistances);
    connect(&model, &RowListModel::listChanged, this, &HeadedListView::takeInList);
    connect(&appearance(), &Appearance::changed, this, &HeadedListView::applyAppearance);
    applyAppearance();
}

const std::vector<int>& HeadedListView::headingRows() const
{
    static const std::vector<int> none;
    return _rows == nullptr ? none : _rows->headingRows();
}

void HeadedListView::applyAppearance()
{
    verticalScrollBar()->setSingleStep(appearance().scaled(wheelStep));
    scheduleDelayedItemsLayout();
    viewport()->update();
}

HeadedListView::Places HeadedListView::placesInSight() const
{
    Places places;
    const QModelIndex first = QListView::indexAt(QPoint(1, 0));
    for (int row = first.row(); first.isValid() && row < model()->rowCount(); ++row) {
        const QRect place = QListView::visualRect(indexOf(row));
        if (place.top() >= viewport()->height()) {
            break;
        }
        if (!std::ranges::binary_search(headingRows(), row) && place.bottom() >= coveredHeight()) {
            places.push_back({indexOf(row), place.top()});
        }
    }
    return places;
}

/// Keeps the row in place that moved least among those that are left.
void HeadedListView::restore(const Places& places)
{
    Places still = places;
    std::erase_if(still, [](const Place& place) { return !place.index.isValid(); });
    const auto nearest = std::ranges::min_element(still, {}, &Place::distance);
    if (nearest != still.end()) {
        QScrollBar* const bar = verticalScrollBar();
        bar->setValue(bar->value() + topOf(nearest->index.row()) - nearest->top);
    }
}

void HeadedListView::measureDistances(const std::vector<int>& newRows)
{
    for (Place& place : _anchor) {
        if (place.index.isValid()) {
            const int row = place.index.row();
            place.distance = std::abs(newRows[static_cast<std::size_t>(row)] - row);
        }
    }
}

void HeadedListView::startTaking()
{
    _anchor.clear();
    if (isVisible() && (_holdsTop || verticalScrollBar()->value() > 0)) {
        _anchor = placesInSight();
    }
    _holdsTop = false;
}

void HeadedListView::takeInList()
{
    if (isVisible()) {
        doItemsLayout();
        restore(std::exchange(_anchor, {}));
    } else {
        scheduleDelayedItemsLayout();
    }
    viewport()->update();
}

void HeadedListView::resizeEvent(QResizeEvent* event)
{
    const Places places = verticalScrollBar()->value() > 0 ? placesInSight() : Places();
    QListView::resizeEvent(event);
    if (event->oldSize().width() != event->size().width()) {
        doItemsLayout();
        restore(places);
    }
}

std::optional<HeadedListView::StuckHeading> HeadedListView::stuck() const
{
    const std::vector<int>& rows = headingRows();
    const auto next = std::ranges::upper_bound(rows, 0, {}, [this](int row) { return topOf(row); });
    if (next == rows.begin()) {
        return std::nullopt;
    }
    const int pushed = next == rows.end() ? 0 : std::min(0, topOf(*next) - headingHeight());
    return StuckHeading{*std::prev(next), pushed};
}

QRect HeadedListView::visualRect(const QModelIndex& index) const
{
    QRect place = QListView::visualRect(index);
    if (!headingRows().empty() && index.isValid()) {
        const std::optional<StuckHeading> heading = stuck();
        if (heading && heading->row == index.row()) {
            place.moveTop(heading->top);
        }
    }
    return place;
}

QModelIndex HeadedListView::indexAt(const QPoint& position) const
{
    const std::optional<StuckHeading> heading = stuck();
    if (heading && position.y() >= 0 && position.y() < heading->top + headingHeight()) {
        return indexOf(heading->row);
    }
    return QListView::indexAt(position);
}

int HeadedListView::rowAt(const QPoint& position) const
{
    const QModelIndex index =
        viewport()->rect().contains(position) ? indexAt(position) : QModelIndex();
    return index.isValid() && isStop(index.row()) ? index.row() : -1;
}

bool HeadedListView::isStop(int row) const
{
    return model()->flags(indexOf(row)).testFlag(Qt::ItemIsSelectable);
}

int HeadedListView::firstRowInSight() const
{
    const QModelIndex index = QListView::indexAt(QPoint(1, coveredHeight()));
    int row = index.isValid() ? index.row() : 0;
    while (row + 1 < model()->rowCount() && std::ranges::binary_search(headingRows(), row)) {
        ++row;
    }
    return row;
}

QPoint HeadedListView::inRow(int row, const QPoint& position) const
{
    return position - visualRect(indexOf(row)).topLeft();
}

void HeadedListView::scrollTo(const QModelIndex& index, ScrollHint hint)
{
    if (!index.isValid() || hint != EnsureVisible) {
        QListView::scrollTo(index, hint);
        return;
    }
    QScrollBar* const bar = verticalScrollBar();
    const QRect place = QListView::visualRect(index);
    const bool isHeading = std::ranges::binary_search(headingRows(), index.row());
    const int above = (isHeading ? 0 : coveredHeight()) - place.top();
    const int below = place.top() + place.height() - viewport()->height();
    if (above > 0) {
        bar->setValue(bar->value() - above);
    } else if (below > 0) {
        const bool isLast = index.row() + 1 == model()->rowCount();
        bar->setValue(isLast ? bar->maximum() : bar->value() + std::min(below, -above));
    }
}

void HeadedListView::scrollContentsBy(int dx, int dy)
{
    QListView::scrollContentsBy(dx, dy);
    if (coveredHeight() > 0) {
        // The sticky heading does not scroll with the rows.
        viewport()->update();
    }
    if (viewport()->underMouse()) {
        followPointer(viewport()->mapFromGlobal(QCursor::pos()));
    }
}

int HeadedListView::selectedRow() const
{
    const QModelIndex current = currentIndex();
    return current.isValid() && selectionModel()->isSelected(current) ? current.row() : -1;
}

void HeadedListView::select(int row)
{
    selectionModel()->setCurrentIndex(
        indexOf(row), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Current);
    viewport()->update();
}

void HeadedListView::move(ListCommand command)
{
    if (model()->rowCount() == 0) {
        return;
    }
    executeDelayedItemsLayout();
    const ListExtent extent{
        .count = model()->rowCount(),
        .firstInSight = firstRowInSight(),
        .pageHeight = viewport()->height() - coveredHeight(),
        .placeOf = [this](int row) { return QListView::visualRect(indexOf(row)); },
        .isHeading = [this](int row) { return !isStop(row); }};
    _usesKeyboard = true;
    select(targetRow(command, selectedRow(), extent));
    scrollTo(currentIndex());
}

void HeadedListView::focusInEvent(QFocusEvent* event)
{
    // Skips QAbstractItemView's handler, which would make the first row current without showing it
    // as selected; Return would then open it.
    QAbstractScrollArea::focusInEvent(event);
    const bool isByKey =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (isByKey && model()->rowCount() > 0) {
        _usesKeyboard = true;
        if (selectedRow() < 0) {
            select(rowToBegin());
        }
    }
    viewport()->update();
}

void HeadedListView::focusOutEvent(QFocusEvent* event)
{
    QListView::focusOutEvent(event);
    viewport()->update();
}

void HeadedListView::hideEvent(QHideEvent* event)
{
    _usesKeyboard = false;
    _hover.setRow({});
    QListView::hideEvent(event);
}

void HeadedListView::followPointer(const QPoint& position)
{
    const int row = rowAt(position);
    const bool isOn = row >= 0 && isOnButton(row, inRow(row, position));
    _hover.setRow(row < 0 ? QModelIndex() : indexOf(row));
    if (std::exchange(_isOnButton, isOn) != isOn) {
        viewport()->update();
    }
    viewport()->setCursor(row < 0 ? Qt::ArrowCursor : cursorOver(isOn));
}

void HeadedListView::mousePressEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    followPointer(position);
    const int row = rowAt(position);
    _pressed = QPersistentModelIndex();
    if (row >= 0 && takes(event->button())) {
        _usesKeyboard = false;
        _pressed = indexOf(row);
        _isButtonPressed = isOnButton(row, inRow(row, position));
        select(row);
    }
}

void HeadedListView::mouseMoveEvent(QMouseEvent* event)
{
    followPointer(event->position().toPoint());
}

void HeadedListView::mouseReleaseEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    const QModelIndex pressed = std::exchange(_pressed, QPersistentModelIndex());
    if (!pressed.isValid() || !takes(event->button()) || rowAt(position) != pressed.row()) {
        return;
    }
    const bool isOn = isOnButton(pressed.row(), inRow(pressed.row(), position));
    if (isOn == _isButtonPressed) {
        clicked(pressed.row(), isOn, *event);
    }
}

void HeadedListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    // The first click has already been handled.
    event->accept();
}

QString HeadedListView::toolTipAt(const QPoint& position) const
{
    const int row = rowAt(position);
    return row < 0 ? QString() : rowToolTip(row, inRow(row, position));
}

void HeadedListView::showHelp(const QPoint& position, const QPoint& globalPosition)
{
    const int row = rowAt(position);
    if (row < 0) {
        QToolTip::hideText();
        return;
    }
    const QRect place = visualRect(indexOf(row));
    // Below the row, so that the tool tip does not cover it.
    const int below = viewport()->mapToGlobal(place.bottomLeft()).y() + 1 - helpBelowPointer;
    QToolTip::showText(
        QPoint(globalPosition.x(), std::max(globalPosition.y(), below)),
        toolTipMarkup(toolTipAt(position)),
        viewport(),
        toolTipPlace(row, inRow(row, position)).translated(place.topLeft()));
}

bool HeadedListView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        showHelp(help->pos(), help->globalPos());
        return true;
    }
    if (event->type() == QEvent::Leave) {
        _hover.setRow({});
    }
    return QListView::viewportEvent(event);
}

void HeadedListView::paintEvent(QPaintEvent* event)
{
    executeDelayedItemsLayout();
    QPainter painter(viewport());
    const QRect area = event->rect();
    painter.fillRect(area, appearance().palette().surfaceList);
    const std::optional<StuckHeading> heading = stuck();
    const QModelIndex first = QListView::indexAt(QPoint(1, area.top()));
    for (int row = first.row(); first.isValid() && row < model()->rowCount(); ++row) {
        const QRect place = QListView::visualRect(indexOf(row));
        if (place.top() > area.bottom()) {
            break;
        }
        if (!heading || heading->row != row) {
            paintRow(painter, row, place);
        }
    }
    if (heading) {
        paintRow(painter, heading->row, visualRect(indexOf(heading->row)));
    }
}

}  // namespace Tarnwick

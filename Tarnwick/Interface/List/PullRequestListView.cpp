#include "Tarnwick/Interface/List/PullRequestListView.h"

#include "Tarnwick/Interface/Controls/HelpText.h"
#include "Tarnwick/Interface/List/HeadingPainter.h"
#include "Tarnwick/Interface/Look/Painting.h"

#include <QHelpEvent>
#include <QPainter>
#include <QScrollBar>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace Tarnwick {
namespace {

constexpr int ageMilliseconds = 60'000;
constexpr int wheelStep = 20;

/// How far below the place that it is given Qt shows a help text, at least.
constexpr int helpBelowPointer = 16;

void paintNoMatches(QPainter& painter, const QRectF& area)
{
    const LineStyle style = appearance().line(TextStyle::body, TextWeight::regular);
    const double top = area.top() + (area.height() - style.height) / 2;
    Painting::text(
        painter,
        QRectF(area.left(), top, area.width(), style.height),
        QStringLiteral("No matches"),
        style,
        appearance().palette().textSecondary,
        Qt::AlignHCenter);
}

}  // namespace

PullRequestListView::PullRequestListView(PullRequestListModel& model, QWidget* parent)
    : QListView(parent)
    , _model(model)
    , _delegate(new RowDelegate(model, this))
    , _scrollBar(*this)
    , _hover(*viewport())
{
    setObjectName(QStringLiteral("pullRequestList"));
    setAccessibleName(QStringLiteral("Pull requests"));
    setFrameShape(QFrame::NoFrame);
    setItemDelegate(_delegate);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setSelectionMode(SingleSelection);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    setAutoScroll(false);
    setMouseTracking(true);
    viewport()->setMouseTracking(true);
    setModel(&model);
    connect(
        &model, &PullRequestListModel::listAboutToChange, this, &PullRequestListView::startTaking);
    connect(&model, &PullRequestListModel::listChanged, this, &PullRequestListView::takeInList);
    connect(
        &model,
        &QAbstractItemModel::rowsMoved,
        this,
        [this](const QModelIndex&, int from, int, const QModelIndex&, int before) {
            noteMove(before > from ? before - 1 : before);
        });
    applyAppearance();
}

void PullRequestListView::applyAppearance()
{
    verticalScrollBar()->setSingleStep(appearance().scaled(wheelStep));
    scheduleDelayedItemsLayout();
    viewport()->update();
}

void PullRequestListView::changeEvent(QEvent* event)
{
    QListView::changeEvent(event);
    if (event->type() == QEvent::StyleChange) {
        applyAppearance();
    }
}

void PullRequestListView::startTaking()
{
    const int selected = selectedRow();
    _selected.reset();
    if (selected >= 0) {
        _selected = _model.content(selected).row().id();
    }
    _anchor.reset();
    if (isVisible()) {
        _anchor.emplace(*this, _holdsTop ? ScrollAnchor::Top::isHeld : ScrollAnchor::Top::isKept);
    }
    _holdsTop = false;
}

void PullRequestListView::noteMove(int row)
{
    if (_anchor && !_model.isHeading(row)) {
        _anchor->addMoved(_model.content(row).row().id());
    }
}

void PullRequestListView::takeInList()
{
    scheduleDelayedItemsLayout();
    if (_anchor && isVisible()) {
        doItemsLayout();
        _anchor->restore(*this);
    }
    _anchor.reset();
    leaveHeading();
    followFinding();
    viewport()->update();
}

/// When the selected row goes, Qt takes the next one, which may be a heading. That has a row below
/// it.
void PullRequestListView::leaveHeading()
{
    const QModelIndex current = currentIndex();
    if (_selected && current.isValid() && _model.isHeading(current.row())) {
        select(current.row() + 1);
    }
}

/// A selected row that is no hit is selected no longer, so that Return opens what one sees; it is
/// again when there is nothing more to find.
void PullRequestListView::followFinding()
{
    const QStringList before = std::exchange(_words, _model.findWords());
    if (before.isEmpty() && _model.isFinding()) {
        _selectedBeforeFinding = _selected;
    }
    if (before == _words) {
        return;
    }
    if (_model.isFinding() && _selected && !_model.indexOf(*_selected).isValid()) {
        selectionModel()->clear();
    }
    if (!_model.isFinding() && selectedRow() < 0 && _selectedBeforeFinding) {
        const QModelIndex again = _model.indexOf(*_selectedBeforeFinding);
        if (again.isValid()) {
            select(again.row());
        }
    }
    if (selectedRow() >= 0) {
        scrollTo(currentIndex());
    } else if (_model.isFinding()) {
        scrollToTop();
    }
}

void PullRequestListView::openHit()
{
    if (_model.isFinding() && filledRow() >= 0) {
        act(ListCommand::open, filledRow());
    }
}

void PullRequestListView::doItemsLayout()
{
    _delegate->setWidth(viewport()->width());
    QListView::doItemsLayout();
}

int PullRequestListView::selectedRow() const
{
    const QModelIndex current = currentIndex();
    return current.isValid() && selectionModel()->isSelected(current) ? current.row() : -1;
}

int PullRequestListView::filledRow() const
{
    const int selected = selectedRow();
    return selected < 0 && _model.isFinding() ? _model.firstPullRequest() : selected;
}

RowPart PullRequestListView::partAt(int row, const QPoint& position) const
{
    return _delegate->partAt(row, position - visualRect(_model.index(row)).topLeft());
}

void PullRequestListView::select(int row)
{
    selectionModel()->setCurrentIndex(
        _model.index(row), QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Current);
    viewport()->update();
}

bool PullRequestListView::isFilled(int row) const
{
    return row == filledRow() || _hover.fill(_model.index(row)) > 0;
}

RowSituation PullRequestListView::situation(int row) const
{
    const bool isSelected = row == filledRow();
    const bool isHovered = _hover.row().isValid() && _hover.row().row() == row;
    const bool hasFocusRing = isSelected && _usesKeyboard && hasFocus();
    const bool beginsStack = row > 0 && _model.depth(row) <= 0 && !_model.isHeading(row - 1);
    return {
        .hover = _hover.fill(_model.index(row)),
        .isSelected = isSelected,
        .hasFocusRing = hasFocusRing,
        .showsEditorButton = isHovered || hasFocusRing,
        .isOnEditorButton = isHovered && _isOnEditorButton,
        .hasLineAbove = beginsStack && !isFilled(row) && !isFilled(row - 1)};
}

void PullRequestListView::paintEvent(QPaintEvent* event)
{
    QPainter painter(viewport());
    const QRect& area = event->rect();
    painter.fillRect(area, appearance().palette().surfaceList);
    if (_model.rowCount() == 0 && _model.isFinding()) {
        paintNoMatches(painter, viewport()->rect());
    }
    const QModelIndex first = indexAt(QPoint(1, area.top()));
    for (int row = first.row(); first.isValid() && row < _model.rowCount(); ++row) {
        const QRect place = visualRect(_model.index(row));
        if (place.top() > area.bottom()) {
            break;
        }
        if (_model.isHeading(row)) {
            paintHeading(painter, place, _model.heading(row));
            continue;
        }
        painter.save();
        painter.translate(place.topLeft());
        _delegate->paint(painter, row, situation(row));
        painter.restore();
    }
    paintStuckHeading(painter);
}

bool PullRequestListView::viewportEvent(QEvent* event)
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

QString PullRequestListView::helpTextAt(const QPoint& position) const
{
    const int row = rowAt(position);
    return row < 0 ? QString() : _delegate->helpText(row, partAt(row, position));
}

void PullRequestListView::showHelp(const QPoint& position, const QPoint& globalPosition)
{
    const int row = rowAt(position);
    if (row < 0) {
        QToolTip::hideText();
        return;
    }
    const QRect place = visualRect(_model.index(row));
    const QRect part = _delegate->place(row, partAt(row, position)).translated(place.topLeft());
    // Below the row, or it would hide the line of details that the user is about to read.
    const int below = viewport()->mapToGlobal(place.bottomLeft()).y() + 1 - helpBelowPointer;
    const QPoint start(globalPosition.x(), std::max(globalPosition.y(), below));
    QToolTip::showText(start, helpMarkup(helpTextAt(position)), viewport(), part);
}

void PullRequestListView::resizeEvent(QResizeEvent* event)
{
    const bool isOtherWidth = viewport()->width() != _delegate->metrics().width;
    const ScrollAnchor anchor(*this);
    QListView::resizeEvent(event);
    if (isOtherWidth) {
        doItemsLayout();
        anchor.restore(*this);
    }
}

void PullRequestListView::scrollContentsBy(int dx, int dy)
{
    QListView::scrollContentsBy(dx, dy);
    if (coveredHeight() > 0) {
        // The heading at the top does not go with the rows.
        viewport()->update();
    }
    if (viewport()->underMouse()) {
        followPointer(viewport()->mapFromGlobal(QCursor::pos()));
    }
}

void PullRequestListView::showEvent(QShowEvent* event)
{
    _ageTimer.start(ageMilliseconds, Qt::VeryCoarseTimer, this);
    QListView::showEvent(event);
}

void PullRequestListView::hideEvent(QHideEvent* event)
{
    _ageTimer.stop();
    _usesKeyboard = false;
    _hover.setRow({});
    QListView::hideEvent(event);
}

void PullRequestListView::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == _ageTimer.timerId()) {
        viewport()->update();
        return;
    }
    QListView::timerEvent(event);
}

}  // namespace Tarnwick

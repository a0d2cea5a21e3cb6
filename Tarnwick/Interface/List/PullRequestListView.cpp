#include "Tarnwick/Interface/List/PullRequestListView.h"

#include "Tarnwick/Interface/List/HeadingPainter.h"
#include "Tarnwick/Interface/Style/Painting.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QPainter>

#include <utility>

namespace Tarnwick {
namespace {

constexpr int ageMilliseconds = 60'000;

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
    : HeadedListView(parent)
    , _model(model)
    , _rows(model)
{
    setObjectName(QStringLiteral("pullRequestList"));
    setAccessibleName(QStringLiteral("Pull requests"));
    begin(model);
}

void PullRequestListView::startTaking()
{
    const int selected = selectedRow();
    _selected.reset();
    if (selected >= 0) {
        _selected = _model.content(selected).row().id();
    }
    HeadedListView::startTaking();
}

void PullRequestListView::takeInList()
{
    HeadedListView::takeInList();
    leaveHeading();
    followFinding();
}

/// Qt replaces a removed selection with the next row, which may be a heading. A heading always has
/// a row below it.
void PullRequestListView::leaveHeading()
{
    const QModelIndex current = currentIndex();
    if (_selected && current.isValid() && _model.isHeading(current.row())) {
        select(current.row() + 1);
    }
}

/// A selected row that does not match is deselected, so that Return opens what the user sees. It is
/// selected again after the search.
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

void PullRequestListView::doItemsLayout()
{
    _rows.setWidth(viewport()->width());
    HeadedListView::doItemsLayout();
}

int PullRequestListView::rowHeight(int row) const
{
    return _model.isHeading(row) ? headingHeight() : _rows.height(row);
}

int PullRequestListView::filledRow() const
{
    const int selected = selectedRow();
    return selected < 0 && _model.isFinding() ? _model.firstPullRequest() : selected;
}

bool PullRequestListView::isFilled(int row) const
{
    return row == filledRow() || hover().fill(_model.index(row)) > 0;
}

RowState PullRequestListView::situation(int row) const
{
    const bool beginsStack = row > 0 && _model.depth(row) <= 0 && !_model.isHeading(row - 1);
    return {
        .hover = hover().fill(_model.index(row)),
        .isSelected = row == filledRow(),
        .hasFocusRing = hasRing(row),
        .showsEditorButton = isHovered(row) || hasRing(row),
        .isOnEditorButton = isButtonHovered(row),
        .hasLineAbove = beginsStack && !isFilled(row) && !isFilled(row - 1)};
}

void PullRequestListView::paintRow(QPainter& painter, int row, const QRect& place) const
{
    if (_model.isHeading(row)) {
        paintHeading(painter, place, _model.heading(row));
        return;
    }
    painter.save();
    painter.translate(place.topLeft());
    _rows.paint(painter, row, situation(row));
    painter.restore();
}

void PullRequestListView::paintEvent(QPaintEvent* event)
{
    HeadedListView::paintEvent(event);
    if (_model.rowCount() == 0 && _model.isFinding()) {
        QPainter painter(viewport());
        paintNoMatches(painter, viewport()->rect());
    }
}

QString PullRequestListView::rowToolTip(int row, const QPoint& position) const
{
    return _rows.toolTip(row, _rows.partAt(row, position));
}

QRect PullRequestListView::toolTipPlace(int row, const QPoint& position) const
{
    return _rows.place(row, _rows.partAt(row, position));
}

void PullRequestListView::keyPressEvent(QKeyEvent* event)
{
    const std::optional<ListCommand> command = listCommand(*event);
    event->setAccepted(command.has_value());
    if (!command) {
        return;
    }
    switch (*command) {
    case ListCommand::find:
        Q_EMIT findRequested();
        break;
    case ListCommand::open:
    case ListCommand::openAndStay:
    case ListCommand::openInEditor:
    case ListCommand::showMenu:
        if (selectedRow() >= 0) {
            act(*command, selectedRow());
        } else {
            event->setAccepted(*command != ListCommand::showMenu);
        }
        break;
    case ListCommand::nextGroup:
    case ListCommand::previousGroup:
        event->setAccepted(!headingRows().empty());
        if (headingRows().empty()) {
            break;
        }
        [[fallthrough]];
    case ListCommand::up:
    case ListCommand::down:
    case ListCommand::first:
    case ListCommand::last:
    case ListCommand::pageUp:
    case ListCommand::pageDown:
        move(*command);
        break;
    }
}

void PullRequestListView::openHit()
{
    if (_model.isFinding() && filledRow() >= 0) {
        act(ListCommand::open, filledRow());
    }
}

void PullRequestListView::act(ListCommand command, int row)
{
    const PullRequestKit::PullRequest pullRequest = _model.content(row).pullRequest();
    if (command == ListCommand::open) {
        Q_EMIT actionRequested(RowAction::open, pullRequest);
    } else if (command == ListCommand::openAndStay) {
        Q_EMIT actionRequested(RowAction::openAndStay, pullRequest);
    } else if (command == ListCommand::openInEditor) {
        Q_EMIT actionRequested(RowAction::openInEditor, pullRequest);
    } else {
        const QPoint belowDetails = _rows.geometry(row).details.bottomLeft() + QPoint(0, 1);
        showMenu(
            row, viewport()->mapToGlobal(visualRect(_model.index(row)).topLeft() + belowDetails));
    }
}

bool PullRequestListView::isOnButton(int row, const QPoint& position) const
{
    return _rows.partAt(row, position) == RowPart::editorButton;
}

void PullRequestListView::clicked(int row, bool onButton, const QMouseEvent& event)
{
    if (event.button() == Qt::MiddleButton || event.modifiers() == Qt::ControlModifier) {
        act(ListCommand::openAndStay, row);
    } else {
        act(onButton ? ListCommand::openInEditor : ListCommand::open, row);
    }
}

void PullRequestListView::contextMenuEvent(QContextMenuEvent* event)
{
    const int row = rowAt(event->pos());
    // The panel handles the menu key.
    if (event->reason() == QContextMenuEvent::Keyboard || row < 0) {
        event->ignore();
        return;
    }
    select(row);
    showMenu(row, event->globalPos());
}

void PullRequestListView::showMenu(int row, const QPoint& globalPosition)
{
    const PullRequestKit::PullRequest pullRequest = _model.content(row).pullRequest();
    const auto choose = [this, pullRequest](RowAction action) {
        Q_EMIT actionRequested(action, pullRequest);
    };
    _menu = makeRowMenu(_model.content(row).listed(), _account, choose, this);
    _menu->popup(globalPosition);
}

void PullRequestListView::showEvent(QShowEvent* event)
{
    _ageTimer.start(ageMilliseconds, Qt::VeryCoarseTimer, this);
    HeadedListView::showEvent(event);
}

void PullRequestListView::hideEvent(QHideEvent* event)
{
    _ageTimer.stop();
    HeadedListView::hideEvent(event);
}

void PullRequestListView::timerEvent(QTimerEvent* event)
{
    if (event->timerId() == _ageTimer.timerId()) {
        viewport()->update();
        return;
    }
    HeadedListView::timerEvent(event);
}

}  // namespace Tarnwick

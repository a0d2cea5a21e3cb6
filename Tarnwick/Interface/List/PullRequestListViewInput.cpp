#include "Tarnwick/Interface/List/ListNavigation.h"
#include "Tarnwick/Interface/List/PullRequestListView.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace Tarnwick {

void PullRequestListView::keyPressEvent(QKeyEvent* event)
{
    const std::optional<ListCommand> command = listCommand(*event);
    if (!command) {
        event->ignore();
        return;
    }
    event->accept();
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
        } else if (*command == ListCommand::showMenu) {
            event->ignore();
        }
        break;
    case ListCommand::up:
    case ListCommand::down:
    case ListCommand::first:
    case ListCommand::last:
    case ListCommand::pageUp:
    case ListCommand::pageDown:
        move(*command);
        break;
    case ListCommand::nextGroup:
    case ListCommand::previousGroup:
        if (_model.headingRows().empty()) {
            event->ignore();
        } else {
            move(*command);
        }
        break;
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
        const QPoint belowDetails = _delegate->geometry(row).details.bottomLeft() + QPoint(0, 1);
        showMenu(
            row, viewport()->mapToGlobal(visualRect(_model.index(row)).topLeft() + belowDetails));
    }
}

void PullRequestListView::move(ListCommand command)
{
    if (_model.rowCount() == 0) {
        return;
    }
    const ListExtent extent{
        .count = _model.rowCount(),
        .firstInSight = firstRowInSight(),
        .pageHeight = viewport()->height() - coveredHeight(),
        .placeOf = [this](int row) { return visualRect(_model.index(row)); },
        .isHeading = [this](int row) { return _model.isHeading(row); }};
    _usesKeyboard = true;
    select(targetRow(command, selectedRow(), extent));
    scrollTo(currentIndex());
}

void PullRequestListView::followPointer(const QPoint& position)
{
    const int row = viewport()->rect().contains(position) ? rowAt(position) : -1;
    const bool isOnEditorButton = row >= 0 && partAt(row, position) == RowPart::editorButton;
    _hover.setRow(row < 0 ? QModelIndex() : _model.index(row));
    if (_isOnEditorButton != isOnEditorButton) {
        _isOnEditorButton = isOnEditorButton;
        viewport()->update();
    }
    viewport()->setCursor(row < 0 ? Qt::ArrowCursor : Qt::PointingHandCursor);
}

void PullRequestListView::mousePressEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    followPointer(position);
    const int row = rowAt(position);
    _pressed = QPersistentModelIndex();
    const bool opens = event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton;
    if (row < 0 || !opens) {
        return;
    }
    _usesKeyboard = false;
    _pressed = _model.index(row);
    _isEditorPressed = partAt(row, position) == RowPart::editorButton;
    select(row);
}

void PullRequestListView::mouseMoveEvent(QMouseEvent* event)
{
    followPointer(event->position().toPoint());
}

void PullRequestListView::mouseReleaseEvent(QMouseEvent* event)
{
    const QPoint position = event->position().toPoint();
    const QModelIndex pressed = _pressed;
    _pressed = QPersistentModelIndex();
    const bool opens = event->button() == Qt::LeftButton || event->button() == Qt::MiddleButton;
    if (!opens || !pressed.isValid() || rowAt(position) != pressed.row()) {
        return;
    }
    if (event->button() == Qt::MiddleButton || event->modifiers() == Qt::ControlModifier) {
        act(ListCommand::openAndStay, pressed.row());
        return;
    }
    const bool isEditor = partAt(pressed.row(), position) == RowPart::editorButton;
    if (isEditor != _isEditorPressed) {
        return;
    }
    act(isEditor ? ListCommand::openInEditor : ListCommand::open, pressed.row());
}

void PullRequestListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    // The first click has opened the row; the second must not do so again.
    event->accept();
}

void PullRequestListView::contextMenuEvent(QContextMenuEvent* event)
{
    const int row = rowAt(event->pos());
    // The menu key is the panel's.
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

void PullRequestListView::focusInEvent(QFocusEvent* event)
{
    // Not the item view's own, which makes the first row current where none is: what is not seen to
    // be selected must not be opened by Return.
    QAbstractScrollArea::focusInEvent(event);
    const bool isByKey =
        event->reason() == Qt::TabFocusReason || event->reason() == Qt::BacktabFocusReason;
    if (isByKey && _model.rowCount() > 0) {
        _usesKeyboard = true;
        if (selectedRow() < 0) {
            select(_model.isFinding() ? _model.firstPullRequest() : firstRowInSight());
        }
    }
    viewport()->update();
}

}  // namespace Tarnwick

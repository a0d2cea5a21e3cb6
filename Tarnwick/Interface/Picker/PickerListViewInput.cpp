#include "Tarnwick/Interface/Picker/PickerListView.h"

#include <QHelpEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QToolTip>

#include <algorithm>

namespace Tarnwick {
namespace {

/// What a key types into a field, or nothing.
QString typedText(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers others =
        event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    const bool isTyped = others == Qt::NoModifier && !event.text().isEmpty()
                         && event.text().front().isPrint() && !event.text().front().isSpace();
    return isTyped ? event.text() : QString();
}

}  // namespace

// Keyboard

QModelIndex PickerListView::moveCursor(CursorAction action, Qt::KeyboardModifiers /*modifiers*/)
{
    const int count = positions().rowCount();
    if (count == 0) {
        return {};
    }
    if (!currentIndex().isValid()) {
        // The first row is a label; the first repository is what the user came for.
        return _model.index(1);
    }
    const int row = currentIndex().row();
    const int page = viewport()->height() - _rows.metrics().ownerHeight;
    switch (action) {
    case MoveUp:
    case MovePrevious:
        return _model.index(std::max(0, row - 1));
    case MoveDown:
    case MoveNext:
        return _model.index(std::min(count - 1, row + 1));
    case MoveHome:
        return _model.index(0);
    case MoveEnd:
        return _model.index(count - 1);
    case MovePageUp:
        return _model.index(positions().rowAt(positions().top(row + 1) - 1 - page));
    case MovePageDown:
        return _model.index(positions().rowAt(positions().top(row) + page));
    case MoveLeft:
    case MoveRight:
        return currentIndex();
    }
    return currentIndex();
}

void PickerListView::moveTo(CursorAction action)
{
    const bool isUpwards = action == MoveUp || action == MovePageUp;
    if (isUpwards && currentIndex().row() == 0) {
        Q_EMIT leftUpwards();
        return;
    }
    const QModelIndex next = moveCursor(action, Qt::NoModifier);
    if (next.isValid()) {
        selectionModel()->setCurrentIndex(next, QItemSelectionModel::ClearAndSelect);
        scrollTo(next);
    }
}

void PickerListView::press(const QModelIndex& index)
{
    const PickerRow& row = _model.row(index.row());
    const bool isChecked = row.isOwner() ? row.owner->isAllSelected() : row.repository->isSelected;
    _model.setData(index, isChecked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

void PickerListView::keyPressEvent(QKeyEvent* event)
{
    executeDelayedItemsLayout();
    _usesKeyboard = true;
    viewport()->update();
    switch (event->key()) {
    case Qt::Key_Up:
        return moveTo(MoveUp);
    case Qt::Key_Down:
        return moveTo(MoveDown);
    case Qt::Key_Home:
        return moveTo(MoveHome);
    case Qt::Key_End:
        return moveTo(MoveEnd);
    case Qt::Key_PageUp:
        return moveTo(MovePageUp);
    case Qt::Key_PageDown:
        return moveTo(MovePageDown);
    default:
        break;
    }
    const QModelIndex current = currentIndex();
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Space || isReturn) {
        const bool isFor = current.isValid() && (!isReturn || _model.row(current.row()).isOwner());
        if (isFor && !event->isAutoRepeat()) {
            press(current);
        }
        return;
    }
    if (const QString text = typedText(*event); !text.isEmpty()) {
        Q_EMIT typed(text);
        return;
    }
    event->ignore();
}

void PickerListView::keyboardSearch(const QString& /*search*/) {}

void PickerListView::focusInEvent(QFocusEvent* event)
{
    if (event->reason() != Qt::MouseFocusReason) {
        _usesKeyboard = true;
        if (!currentIndex().isValid()) {
            moveTo(MoveNext);
        }
    }
    QAbstractItemView::focusInEvent(event);
    viewport()->update();
}

void PickerListView::focusOutEvent(QFocusEvent* event)
{
    QAbstractItemView::focusOutEvent(event);
    viewport()->update();
}

// Pointer

PickerListView::Spot PickerListView::spotAt(const QPoint& position) const
{
    const QModelIndex index =
        viewport()->rect().contains(position) ? indexAt(position) : QModelIndex();
    if (!index.isValid()) {
        return {};
    }
    const QRect place = visualRect(index);
    const PickerRowGeometry geometry = _rows.geometryOf(_model.row(index.row()), place.width());
    return {.row = index, .isButton = geometry.buttonHit.contains(position - place.topLeft())};
}

void PickerListView::setHovered(const Spot& spot)
{
    if (_hovered == spot) {
        return;
    }
    _hovered = spot;
    viewport()->setCursor(spot.isButton ? Qt::PointingHandCursor : Qt::ArrowCursor);
    viewport()->update();
}

void PickerListView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    executeDelayedItemsLayout();
    _usesKeyboard = false;
    _pressed = spotAt(event->position().toPoint());
    if (_pressed.row.isValid()) {
        // What is clicked does not move under the pointer, even where it is half out of sight.
        setAutoScroll(false);
        selectionModel()->setCurrentIndex(_pressed.row, QItemSelectionModel::ClearAndSelect);
        setAutoScroll(true);
    }
    viewport()->update();
}

void PickerListView::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event);
}

void PickerListView::mouseMoveEvent(QMouseEvent* event)
{
    setHovered(spotAt(event->position().toPoint()));
}

void PickerListView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        return;
    }
    const Spot pressed = _pressed;
    _pressed = {};
    if (!pressed.row.isValid() || pressed != spotAt(event->position().toPoint())) {
        return;
    }
    // Of a label only its button can be pressed, of a repository everything.
    if (pressed.isButton || !_model.row(pressed.row.row()).isOwner()) {
        press(pressed.row);
    }
}

bool PickerListView::viewportEvent(QEvent* event)
{
    if (event->type() == QEvent::Leave) {
        setHovered({});
    }
    if (event->type() == QEvent::ToolTip) {
        const auto* const help = static_cast<QHelpEvent*>(event);
        const QModelIndex index = indexAt(help->pos());
        const QString text = index.isValid()
                                 ? _rows.helpText(_model.row(index.row()), viewport()->width())
                                 : QString();
        QToolTip::showText(help->globalPos(), text, viewport(), visualRect(index));
        return true;
    }
    return QAbstractItemView::viewportEvent(event);
}

}  // namespace Tarnwick

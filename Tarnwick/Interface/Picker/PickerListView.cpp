#include "Tarnwick/Interface/Picker/PickerListView.h"

#include "Tarnwick/Interface/Style/Painting.h"

#include <QKeyEvent>
#include <QScrollBar>

namespace Tarnwick {
namespace {

/// Below the last row, so that it ends above the window's round corners.
constexpr int bottomRoom = 8;
/// Keeps the scroll handle clear of the round corners.
constexpr int scrollBarEnd = 10;
constexpr int scrollBarMargin = 2;

/// The text that a key would type into a field, or nothing.
QString typedText(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers others =
        event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    const bool isTyped = others == Qt::NoModifier && !event.text().isEmpty()
                         && event.text().front().isPrint() && !event.text().front().isSpace();
    return isTyped ? event.text() : QString();
}

}  // namespace

PickerListView::PickerListView(PickerListModel& model, QWidget* parent)
    : HeadedListView(parent)
    , _model(model)
{
    setAccessibleName(QStringLiteral("Repositories"));
    begin(model);
}

void PickerListView::applyAppearance()
{
    _rows.applyAppearance();
    scrollBar().setInsets(headingHeight() + scrollBarMargin, scrollBarEnd + scrollBarMargin);
    HeadedListView::applyAppearance();
    verticalScrollBar()->setSingleStep(_rows.metrics().repositoryHeight / 2);
}

void PickerListView::updateGeometries()
{
    HeadedListView::updateGeometries();
    QScrollBar* const bar = verticalScrollBar();
    const int missing = bar->maximum() > 0 ? bottomRoom : 0;
    bar->setMaximum(bar->maximum() + missing);
}

int PickerListView::rowHeight(int row) const
{
    return _model.row(row).isOwner() ? headingHeight() : _rows.metrics().repositoryHeight;
}

void PickerListView::paintRow(QPainter& painter, int row, const QRect& place) const
{
    const PickerRowPainter::State state{
        .isHovered = isHovered(row),
        .isButtonHovered = isButtonHovered(row),
        .isCurrent = row == currentIndex().row(),
        .hasRing = hasRing(row)};
    _rows.draw(painter, _model.row(row), place.topLeft(), place.width(), state);
}

void PickerListView::paintEvent(QPaintEvent* event)
{
    HeadedListView::paintEvent(event);
    QPainter painter(viewport());
    Painting::hairline(painter, 0, 0, viewport()->width(), appearance().palette().hairline);
}

bool PickerListView::isOnButton(int row, const QPoint& position) const
{
    return _rows.geometryOf(_model.row(row), viewport()->width()).buttonHit.contains(position);
}

QString PickerListView::rowToolTip(int row, const QPoint& /*position*/) const
{
    return _rows.toolTip(_model.row(row), viewport()->width());
}

QRect PickerListView::toolTipPlace(int row, const QPoint& /*position*/) const
{
    return {0, 0, viewport()->width(), rowHeight(row)};
}

void PickerListView::press(int row)
{
    const PickerRow& pressed = _model.row(row);
    const bool isChecked =
        pressed.isOwner() ? pressed.owner->allSelected() : pressed.repository->isSelected;
    _model.setData(_model.index(row), isChecked ? Qt::Unchecked : Qt::Checked, Qt::CheckStateRole);
}

/// A label reacts only on its button, a repository everywhere.
void PickerListView::clicked(int row, bool onButton, const QMouseEvent& /*event*/)
{
    if (onButton || !_model.row(row).isOwner()) {
        press(row);
    }
}

void PickerListView::keyPressEvent(QKeyEvent* event)
{
    const int row = currentIndex().row();
    const bool isReturn = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Space || isReturn) {
        const bool isFor = row >= 0 && (!isReturn || _model.row(row).isOwner());
        if (isFor && !event->isAutoRepeat()) {
            press(row);
        }
        return;
    }
    if (const QString text = typedText(*event); !text.isEmpty()) {
        Q_EMIT typed(text);
        return;
    }
    const std::optional<ListCommand> command = listCommand(*event);
    const bool moves = command && *command <= ListCommand::pageDown;
    event->setAccepted(moves);
    if (!moves) {
        return;
    }
    const bool isUpwards = *command == ListCommand::up || *command == ListCommand::pageUp;
    if (isUpwards && row == 0) {
        Q_EMIT leftUpwards();
    } else {
        move(*command);
    }
}

}  // namespace Tarnwick

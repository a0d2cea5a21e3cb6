#pragma once

#include "Tarnwick/Interface/Controls/OverlayScrollBar.h"
#include "Tarnwick/Interface/Picker/PickerListModel.h"
#include "Tarnwick/Interface/Picker/PickerRowPainter.h"
#include "Tarnwick/Interface/Picker/PickerRowPositions.h"

#include <QListView>
#include <QPersistentModelIndex>

#include <optional>

namespace Tarnwick {

/// The list of the picker. An owner's label stays at the list's top while its repositories pass
/// below it, until the next label pushes it out. Main thread only.
///
/// Up, Down, Home, End and the page keys move, Space ticks a repository; Space and Return press an
/// owner's button. Everything else that can be typed goes to `typed`.
class PickerListView final : public QListView {
    Q_OBJECT

public:
    /// Requires: both live longer than the view.
    PickerListView(PickerListModel& model, QWidget* parent);

    /// Takes the focus; without a current row the first repository becomes it.
    void enter();

    /// The row's place in the viewport. That of an owner whose label stays at the top is there.
    QRect visualRect(const QModelIndex& index) const override;
    QModelIndex indexAt(const QPoint& position) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;
    void doItemsLayout() override;
    void keyboardSearch(const QString& search) override;

Q_SIGNALS:
    /// A key that moves up was pressed in the first row.
    void leftUpwards();
    void typed(const QString& text);

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;

    int horizontalOffset() const override { return 0; }

    int verticalOffset() const override;
    void setSelection(const QRect& area, QItemSelectionModel::SelectionFlags command) override;
    QRegion visualRegionForSelection(const QItemSelection& selection) const override;
    void updateGeometries() override;
    void scrollContentsBy(int dx, int dy) override;
    void dataChanged(
        const QModelIndex& first, const QModelIndex& last, const QList<int>& roles) override;
    void rowsInserted(const QModelIndex& parent, int first, int last) override;
    void rowsAboutToBeRemoved(const QModelIndex& parent, int first, int last) override;
    void changeEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool viewportEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;

private:
    /// What lies under the pointer: a row, or in it an owner's button.
    struct Spot {
        QPersistentModelIndex row;
        bool isButton = false;

        bool operator==(const Spot&) const = default;
    };

    void adopt();
    void rowsChanged();
    const PickerRowPositions& positions() const;

    std::optional<int> stuckOwner() const { return positions().stuckOwner(verticalOffset()); }

    void rememberAnchor();
    void moveTo(CursorAction action);
    void press(const QModelIndex& index);
    Spot spotAt(const QPoint& position) const;
    void setHovered(const Spot& spot);
    void drawRow(QPainter& painter, int row) const;

    PickerListModel& _model;
    PickerRowPainter _rows;
    OverlayScrollBar* _scrollBar;
    mutable std::optional<PickerRowPositions> _positions;  ///< Worked out when asked for.
    QPersistentModelIndex _anchor;  ///< The row that stays in its place when others come and go.
    int _anchorOffset = 0;
    bool _isRestoring = false;
    bool _usesKeyboard = false;
    Spot _hovered;
    Spot _pressed;
};

}  // namespace Tarnwick

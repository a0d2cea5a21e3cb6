#pragma once

#include "Tarnwick/Interface/Controls/OverlayScrollBar.h"
#include "Tarnwick/Interface/List/ListKeys.h"
#include "Tarnwick/Interface/List/RowHover.h"
#include "Tarnwick/Interface/List/RowListModel.h"

#include <QListView>
#include <QPersistentModelIndex>

#include <optional>
#include <vector>

namespace Tarnwick {

/// A list with groups under headings and at most one button per row. The heading of the first
/// visible row sticks to the top until the next one pushes it out. Visible rows stay in place when
/// others are added or removed, except in a list scrolled to its top. One row is selected; it has a
/// focus ring once the keyboard is used. Main thread only.
class HeadedListView : public QListView {
    Q_OBJECT

public:
    explicit HeadedListView(QWidget* parent);

    /// The row's place in the viewport. That of a sticky heading is its current place.
    QRect visualRect(const QModelIndex& index) const override;
    QModelIndex indexAt(const QPoint& position) const override;

    /// Keeps the row clear of the sticky heading.
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

    virtual int rowHeight(int row) const = 0;
    virtual void paintRow(QPainter& painter, int row, const QRect& place) const = 0;

    /// The tool tip at a point of the viewport; empty outside of rows.
    QString toolTipAt(const QPoint& position) const;

    /// The next list keeps visible rows in place, even if scrolled to its top.
    void holdRows() { _holdsTop = true; }

protected:
    /// Call once, when the subclass is set up. Requires: `model` outlives the view.
    void begin(RowListModel& model);

    virtual int headingHeight() const = 0;

    /// `position` is relative to the row's upper left corner.
    virtual bool isOnButton(int row, const QPoint& position) const = 0;
    virtual QString rowToolTip(int row, const QPoint& position) const = 0;
    /// The area in which the tool tip stays, also relative to the row.
    virtual QRect toolTipPlace(int row, const QPoint& position) const = 0;

    /// A click on the row, on or beside its button.
    virtual void clicked(int row, bool onButton, const QMouseEvent& event) = 0;

    virtual bool takes(Qt::MouseButton button) const { return button == Qt::LeftButton; }

    virtual Qt::CursorShape cursorOver(bool onButton) const = 0;

    /// Called by `begin` and when the appearance changes.
    virtual void applyAppearance();

    /// The row that Tab selects if none is selected.
    virtual int rowToBegin() const { return firstRowInSight(); }

    void move(ListCommand command);
    void select(int row);
    /// -1 for none.
    int selectedRow() const;
    const std::vector<int>& headingRows() const;
    int rowAt(const QPoint& position) const;
    int firstRowInSight() const;
    QPoint inRow(int row, const QPoint& position) const;

    QModelIndex indexOf(int row) const { return model()->index(row, 0); }

    bool isStop(int row) const;

    const RowHover& hover() const { return _hover; }

    bool isHovered(int row) const { return _hover.row().isValid() && _hover.row().row() == row; }

    bool isButtonHovered(int row) const { return isHovered(row) && _isOnButton; }

    bool hasRing(int row) const { return row == selectedRow() && _usesKeyboard && hasFocus(); }

    OverlayScrollBar& scrollBar() { return _scrollBar; }

    bool viewportEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void hideEvent(QHideEvent* event) override;

protected Q_SLOTS:
    virtual void startTaking();
    virtual void takeInList();

private:
    /// A visible row, and how many rows it moves by in a new list.
    struct Place {
        QPersistentModelIndex index;
        int top = 0;
        int distance = 0;
    };

    using Places = std::vector<Place>;

    struct StuckHeading {
        int row = 0;
        int top = 0;  ///< 0, or negative while being pushed out.
    };

    std::optional<StuckHeading> stuck() const;

    int topOf(int row) const { return QListView::visualRect(indexOf(row)).top(); }

    int coveredHeight() const { return headingRows().empty() ? 0 : headingHeight(); }

    Places placesInSight() const;
    void restore(const Places& places);
    void measureDistances(const std::vector<int>& newRows);
    void followPointer(const QPoint& position);
    void showHelp(const QPoint& position, const QPoint& globalPosition);

    const RowListModel* _rows = nullptr;  ///< Set by `begin`.
    OverlayScrollBar _scrollBar;
    RowHover _hover;
    bool _isOnButton = false;
    QPersistentModelIndex _pressed;
    bool _isButtonPressed = false;
    bool _usesKeyboard = false;
    bool _holdsTop = false;
    Places _anchor;  ///< Set while a new list is applied.
};

}  // namespace Tarnwick
